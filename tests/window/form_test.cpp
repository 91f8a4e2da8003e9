#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "form_fixture.h"
#include "panel_box.h"
#include "popup_menu.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QMetaMethod>
#include <QTest>
#include <QToolBar>

using namespace window_test;

namespace {

void openOn(FormFixture& window)
{
    window.install("a", alphaModule());
    window.open();
}

QStringList contents(const QMenu* menu)
{
    QStringList names;
    for (const QAction* item : menu->actions())
        names.append(item->isSeparator() ? QStringLiteral("-") : item->objectName());
    return names;
}

} // namespace

/// The parts of the form: its class, actions, menus, and its initial state.
class FormTest : public QObject
{
    Q_OBJECT

private slots:
    void formTakesTheGivenName();
    void formNamesItself();
    void boxesAreEditableAndTakeNoText();
    void actionsAreAsListed_data();
    void actionsAreAsListed();
    void menusHoldTheirItemsInOrder();
    void demoActionIsInNoMenu();
    void beforeTheStartEverythingIsOff();
    void everyControlHasAnAccessibleName();
    void textFieldsOfTheBoxesHaveTheirNames();
    void everyControlIsReachedByTab();
    void slotsAreAsListed();
    void classAddsNothingButSlots();
    void castKnowsItsClass();
};

void FormTest::formTakesTheGivenName()
{
    const FormFixture window; // closes the message box of a start without modules
    const BibleForm form(nullptr, "другото");
    QCOMPARE(form.objectName(), QStringLiteral("другото"));
}

void FormTest::formNamesItself()
{
    FormFixture window;
    openOn(window);
    QCOMPARE(window.form().objectName(), QStringLiteral("BibleForm"));
}

void FormTest::boxesAreEditableAndTakeNoText()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    for (qt3::ComboBox* box : {form.comboBook, form.comboChapter, form.comboVerse, form.comboSearchText}) {
        QVERIFY(box->isEditable());
        QCOMPARE(box->insertPolicy(), QComboBox::NoInsert);
        const int before = box->count();
        FormFixture::typeInto(box, QStringLiteral("нещо"));
        FormFixture::press(Qt::Key_Return);
        QCOMPARE(box->count(), before);
    }
}

void FormTest::actionsAreAsListed_data()
{
    QTest::addColumn<bool>("toggle");
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("key");
    const auto row = [](const char* name, bool toggle, bool on, const char* key) {
        QTest::newRow(name) << toggle << on << QString::fromLatin1(key);
    };
    row("helpAbout", false, false, "");
    row("fileExit", false, false, "");
    row("helpAboutQt", false, false, "");
    row("helpWhatsThis", false, false, "");
    row("_3_betha_demoAction", false, false, "");
    row("viewLocationToolbar", true, true, "F4");
    row("viewSearchBar", true, true, "F3");
    row("gotoAction", false, false, "F5");
    row("viewFont", false, false, "");
    row("viewChapterHyperLinks", true, false, "F8");
}

void FormTest::actionsAreAsListed()
{
    FormFixture window;
    openOn(window);
    QFETCH(bool, toggle);
    QFETCH(bool, on);
    QFETCH(QString, key);
    const auto* action = window.form().findChild<QAction*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(action != nullptr);
    QCOMPARE(action->parent(), &window.form());
    QCOMPARE(action->isCheckable(), toggle);
    QCOMPARE(action->isChecked(), on);
    QCOMPARE(action->shortcut().toString(), key);
}

void FormTest::menusHoldTheirItemsInOrder()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    const QList<QAction*> bar = form.menubar->actions();
    QCOMPARE(bar, (QList<QAction*>{form.menuFile->menuAction(), form.menuTranslations->menuAction(),
                                   form.menuView->menuAction(), form.menuHelp->menuAction()}));
    QCOMPARE(contents(form.menuFile), QStringList{QStringLiteral("fileExit")});
    QCOMPARE(contents(form.menuView).join(u' '),
             QStringLiteral("viewFont viewChapterHyperLinks - viewLocationToolbar viewSearchBar"));
    QCOMPARE(contents(form.menuHelp).join(u' '), QStringLiteral("helpAbout helpAboutQt - helpWhatsThis"));
}

void FormTest::demoActionIsInNoMenu()
{
    FormFixture window;
    openOn(window);
    QAction* demo = window.form()._3_betha_demoAction;
    QCOMPARE(demo->associatedObjects(), QList<QObject*>());
    QVERIFY(demo->shortcuts().isEmpty());
}

void FormTest::beforeTheStartEverythingIsOff()
{
    FormFixture window; // no modules: the window is in its initial state
    window.open();
    const BibleForm& form = window.form();
    QVERIFY(form.tabsText == nullptr);
    QVERIFY(form.menuTranslations->actions().isEmpty());
    QVERIFY(!form.groupSearch->isEnabled());
    QVERIFY(!form.toolbarLocation->isEnabled());
    QVERIFY(!form.checkCaseSensitive->isEnabled());
    for (const QWidget* child : form.groupSearch->findChildren<QWidget*>())
        if (child->window() == &form) // an open list is a separate window
            QVERIFY2(!child->isEnabled(), qPrintable(child->objectName()));
    for (const QWidget* box : {form.comboBook, form.comboChapter, form.comboVerse})
        QVERIFY(!box->isEnabled());
    QVERIFY(form.textBrowser->toPlainText().isEmpty());
}

void FormTest::everyControlHasAnAccessibleName()
{
    FormFixture window;
    openOn(window);
    for (const QWidget* widget : window.form().findChildren<QWidget*>())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")) &&
            widget->focusPolicy() != Qt::NoFocus &&
            widget->parentWidget()->objectName() != widget->objectName())
            QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
    const auto* extension = window.form().findChild<QWidget*>(QStringLiteral("qt_toolbar_ext_button"));
    QVERIFY(extension && !extension->accessibleName().isEmpty());
}

/// The accessible name of an editable box is its text; its line edit has the name.
void FormTest::textFieldsOfTheBoxesHaveTheirNames()
{
    FormFixture window;
    openOn(window);
    for (const QComboBox* box : window.form().findChildren<QComboBox*>()) {
        QAccessibleInterface* field = QAccessible::queryAccessibleInterface(box->lineEdit());
        QCOMPARE(field->text(QAccessible::Name), box->accessibleName());
    }
}

void FormTest::everyControlIsReachedByTab()
{
    FormFixture window;
    openOn(window);
    QSet<QString> reached;
    window.form().comboBook->setFocus();
    for (int i = 0; i < 20; ++i) {
        reached.insert(QApplication::focusWidget()->objectName());
        FormFixture::press(Qt::Key_Tab);
    }
    for (const char* name :
         {"comboBook", "comboChapter", "comboVerse", "btnHideSearch", "btnSearch", "checkRedoSearch",
          "checkPartialWord", "comboSearchText", "listSearchResults", "tabsText", "textBrowser"})
        QVERIFY2(reached.contains(QString::fromLatin1(name)), name);
}

void FormTest::slotsAreAsListed()
{
    const QMetaObject& meta = BibleForm::staticMetaObject;
    const char* const expected[][2] = {{"init()", ""},
                                       {"destroy()", ""},
                                       {"menuTranslations_activated(int)", "bibleIndex"},
                                       {"tabsText_selected(int)", "tabID"},
                                       {"comboBook_activated(int)", "bookN"},
                                       {"comboChapter_activated(int)", "chapterN"},
                                       {"comboVerse_activated(int)", "verseN"},
                                       {"comboSearchText_activated(QString)", ""},
                                       {"checkPartialWord_toggled(bool)", "on"},
                                       {"btnSearch_pressed()", ""},
                                       {"listSearchResults_highlighted(int)", "i"},
                                       {"fileExit_activated()", ""},
                                       {"helpAbout_activated()", ""},
                                       {"helpAboutQt_activated()", ""},
                                       {"helpWhatsThis_activated()", ""},
                                       {"_3_betha_demoAction_activated()", ""},
                                       {"btnHideSearch_clicked()", ""},
                                       {"viewLocationToolbar_toggled(bool)", "on"},
                                       {"viewSearchBar_toggled(bool)", "on"},
                                       {"gotoAction_activated()", ""},
                                       {"viewFont_activated()", ""},
                                       {"textBrowser_anchorClicked(QString,QString)", "name,href"},
                                       {"viewChapterHyperLinks_toggled(bool)", ""},
                                       {"comboSearchText_textChanged(QString)", ""},
                                       {"languageChange()", ""}};
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 25);
    for (int i = 0; i < 25; ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), QByteArray(expected[i][0]));
        QCOMPARE(method.parameterNames().join(','), QByteArray(expected[i][1]));
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), i == 24 ? QMetaMethod::Protected : QMetaMethod::Public);
        QCOMPARE(QByteArray(method.typeName()), QByteArray("void"));
    }
}

void FormTest::classAddsNothingButSlots()
{
    const QMetaObject& meta = BibleForm::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("BibleForm"));
    QCOMPARE(meta.superClass(), &QMainWindow::staticMetaObject);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
    QCOMPARE(meta.constructorCount(), 0);
}

void FormTest::castKnowsItsClass()
{
    FormFixture window;
    openOn(window);
    QCOMPARE(window.form().qt_metacast("BibleForm"), static_cast<void*>(&window.form()));
    QVERIFY(window.form().qt_metacast("QMainWindow") != nullptr);
    QVERIFY(window.form().qt_metacast("QDialog") == nullptr);
}

QTEST_MAIN(FormTest)
#include "form_test.moc"
