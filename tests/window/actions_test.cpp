#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "list_box.h"
#include "panel_box.h"
#include "popup_menu.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QWhatsThis>

using namespace window_test;

namespace {

void openOn(FormFixture& window)
{
    window.install("а", alphaModule());
    window.open();
}

QWidget* whatsThisText()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->inherits("QWhatsThat"))
            return widget;
    return nullptr;
}

} // namespace

/// The actions of the View, Help and File menus.
class ActionsTest : public QObject
{
    Q_OBJECT

private slots:
    void searchKeyHidesAndShowsThePanel();
    void searchKeyLetsTypingReplaceTheText();
    void locationKeyHidesAndShowsTheToolBar();
    void menuHidesAndShowsBoth();
    void hideButtonTakesTheCheckMarkAway();
    void hiddenPanelKeepsItsContents();
    void keysWorkWithoutMenuBar();
    void aboutBoxTellsWhatItShould();
    void aboutQtHasItsCaption();
    void whatsThisModeExplainsTheNextClick_data();
    void whatsThisModeExplainsTheNextClick();
    void exitClosesTheWindow();
    void demoShowsItsString();
};

void ActionsTest::searchKeyHidesAndShowsThePanel()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    form.textBrowser->setFocus();
    FormFixture::press(Qt::Key_F3);
    QVERIFY(!form.groupSearch->isVisible());
    QVERIFY(!form.viewSearchBar->isChecked());
    QTRY_COMPARE(form.groupText->width(), 678);
    QVERIFY(form.textBrowser->hasFocus());
    FormFixture::press(Qt::Key_F3);
    QVERIFY(form.groupSearch->isVisible());
    QVERIFY(form.viewSearchBar->isChecked());
    QVERIFY(form.comboSearchText->hasFocus());
    QTRY_COMPARE(form.groupText->width(), 491);
    QCOMPARE(form.groupSearch->width(), 181);
}

void ActionsTest::searchKeyLetsTypingReplaceTheText()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("стар"));
    FormFixture::press(Qt::Key_F3);
    FormFixture::press(Qt::Key_F3);
    FormFixture::type(QStringLiteral("нов"));
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("нов"));
}

void ActionsTest::locationKeyHidesAndShowsTheToolBar()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    form.comboVerse->setFocus(); // the key does not open a list here either
    FormFixture::press(Qt::Key_F4);
    QVERIFY(!form.toolbarLocation->isVisible());
    QVERIFY(!form.viewLocationToolbar->isChecked());
    FormFixture::press(Qt::Key_F4);
    QVERIFY(form.toolbarLocation->isVisible());
    QVERIFY(form.viewLocationToolbar->isChecked());
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
}

void ActionsTest::menuHidesAndShowsBoth()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.chooseInMenu(form.menuView, form.viewSearchBar);
    window.chooseInMenu(form.menuView, form.viewLocationToolbar);
    QVERIFY(!form.groupSearch->isVisible());
    QVERIFY(!form.toolbarLocation->isVisible());
    window.chooseInMenu(form.menuView, form.viewLocationToolbar);
    window.chooseInMenu(form.menuView, form.viewSearchBar);
    QVERIFY(form.groupSearch->isVisible());
    QVERIFY(form.toolbarLocation->isVisible());
    QVERIFY(form.comboSearchText->hasFocus());
}

void ActionsTest::hideButtonTakesTheCheckMarkAway()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    QTest::mousePress(form.btnHideSearch, Qt::LeftButton);
    QVERIFY(form.groupSearch->isVisible()); // on the click, not on the press
    QTest::mouseRelease(form.btnHideSearch, Qt::LeftButton);
    QVERIFY(!form.groupSearch->isVisible());
    QVERIFY(!form.viewSearchBar->isChecked());
}

void ActionsTest::hiddenPanelKeepsItsContents()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("Рут"));
    FormFixture::press(Qt::Key_Return);
    QTest::mouseClick(form.checkPartialWord, Qt::LeftButton, {}, QPoint(8, 12));
    FormFixture::press(Qt::Key_F3);
    FormFixture::press(Qt::Key_F3);
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("Рут"));
    QCOMPARE(window.rows().size(), 85);
    QVERIFY(form.checkPartialWord->isChecked());
    QVERIFY(form.checkCaseSensitive->isEnabled());
}

void ActionsTest::keysWorkWithoutMenuBar()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    form.menubar->hide();
    form.textBrowser->setFocus();
    FormFixture::press(Qt::Key_F3);
    QVERIFY(!form.groupSearch->isVisible());
    FormFixture::press(Qt::Key_F4);
    QVERIFY(!form.toolbarLocation->isVisible());
}

void ActionsTest::aboutBoxTellsWhatItShould()
{
    FormFixture window;
    openOn(window);
    window.chooseInMenu(window.form().menuHelp, window.form().helpAbout);
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().caption, QStringLiteral("За програмата"));
    QCOMPARE(boxes.first().text.split(u'\n'),
             (QStringList{
                 QStringLiteral("Kedrin за Linux, 0.3 betha"),
                 QStringLiteral("Автор: " ABOUT_AUTHOR ", 2005"), QStringLiteral("Email: " ABOUT_CONTACT),
                 QStringLiteral("(Пишете за открити бъгове, препоръки и други въпроси свързани с продукта)"),
                 QString(), QStringLiteral("Със съдействието на " ABOUT_PARTNER)}));
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
}

void ActionsTest::aboutQtHasItsCaption()
{
    FormFixture window;
    openOn(window);
    QString caption;
    QVERIFY(inDialog([&] { window.chooseInMenu(window.form().menuHelp, window.form().helpAboutQt); },
                     [&](QWidget& dialog) {
                         caption = dialog.windowTitle();
                         dialog.close();
                     }));
    QCOMPARE(caption, QStringLiteral("Kedrin за Linux 0.3 betha"));
}

void ActionsTest::whatsThisModeExplainsTheNextClick_data()
{
    QTest::addColumn<bool>("explained");
    QTest::newRow("btnSearch") << true;
    QTest::newRow("checkRedoSearch") << true;
    QTest::newRow("comboBook") << true;
    QTest::newRow("comboVerse") << true;
    QTest::newRow("groupSearchOptions") << true;
    QTest::newRow("menubar") << false;
}

void ActionsTest::whatsThisModeExplainsTheNextClick()
{
    QFETCH(bool, explained);
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.chooseInMenu(form.menuHelp, form.helpWhatsThis);
    QVERIFY(QWhatsThis::inWhatsThisMode());
    auto* widget = form.findChild<QWidget*>(QString::fromLatin1(QTest::currentDataTag()));
    QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(widget->width() - 3, widget->height() - 3));
    QCOMPARE(whatsThisText() != nullptr, explained);
    QVERIFY(window.rows().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty()); // the click had no other effect
    if (whatsThisText() != nullptr)
        whatsThisText()->close();
    QWhatsThis::leaveWhatsThisMode();
}

void ActionsTest::exitClosesTheWindow()
{
    FormFixture window;
    openOn(window);
    window.chooseInMenu(window.form().menuFile, window.form().fileExit);
    QVERIFY(!window.form().isVisible());
    QVERIFY(window.takeBoxes().isEmpty());
}

void ActionsTest::demoShowsItsString()
{
    FormFixture window;
    openOn(window);
    window.form()._3_betha_demoAction->trigger();
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Information);
    QCOMPARE(boxes.first().caption, QStringLiteral("0.3 Betha Demo String"));
    QVERIFY(boxes.first().text.startsWith(QStringLiteral("Demo exception: ")));
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
}

QTEST_MAIN(ActionsTest)
#include "actions_test.moc"
