#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "form_fixture.h"
#include "list_box.h"
#include "panel_box.h"

#include <QAction>
#include <QApplication>
#include <QFontDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QWheelEvent>

using namespace window_test;

namespace {

void openOn(FormFixture& window)
{
    window.install("а", alphaModule());
    window.open();
}

/// Opens the font dialog from the menu and closes it.
bool inFontDialog(const FormFixture& window, const std::function<void(QFontDialog&)>& answer)
{
    const BibleForm& form = window.form();
    return inDialog([&] { window.chooseInMenu(form.menuView, form.viewFont); },
                    [&](QWidget& dialog) { answer(dynamic_cast<QFontDialog&>(dialog)); });
}

void setLargeFont(BibleForm& form)
{
    QFont large = form.font();
    large.setPointSize(24);
    form.setFont(large);
    QCoreApplication::processEvents();
}

/// Restores the application's font.
class FontKeeper
{
public:
    ~FontKeeper() { QApplication::setFont(m_font); }

private:
    QFont m_font = QApplication::font();
};

} // namespace

/// The font chosen by the user.
class FontTest : public QObject
{
    Q_OBJECT

private slots:
    void cancelledFontDialogChangesNothing();
    void fontDialogStartsWithTheApplicationsFont();
    void acceptedFontReachesWhatHasNoneOfItsOwn();
    void zoomedPageHasTheAcceptedFontToo();
    void largeFontLeavesTheLocationBoxesInSight();
    void largeFontKeepsThePanelsPlaces();
    void largeFontLeavesTheHitsApart();
    void largeFontLeavesTheSearchTextWhole();
    void largeFontLeavesTheMenusWhole();
};

void FontTest::cancelledFontDialogChangesNothing()
{
    const FontKeeper keeper;
    FormFixture window;
    openOn(window);
    const QFont before = window.form().font();
    const QFont application = QApplication::font();
    QVERIFY(inFontDialog(window, [](QFontDialog& dialog) {
        dialog.setCurrentFont(QFont(QStringLiteral("DejaVu Sans"), 31));
        dialog.reject();
    }));
    QCOMPARE(window.form().font(), before);
    QCOMPARE(QApplication::font(), application);
    QCOMPARE(window.form().textBrowser->font(), before);
}

void FontTest::fontDialogStartsWithTheApplicationsFont()
{
    const FontKeeper keeper;
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 17));
    FormFixture window;
    openOn(window);
    QFont first, second;
    const QFont chosen(QStringLiteral("DejaVu Sans"), 18);
    QVERIFY(inFontDialog(window, [&](QFontDialog& dialog) {
        first = dialog.currentFont();
        dialog.setCurrentFont(chosen);
        dialog.accept();
    }));
    QVERIFY(inFontDialog(window, [&](QFontDialog& dialog) {
        second = dialog.currentFont();
        dialog.reject();
    }));
    QCOMPARE(first.family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(first.pointSize(), 17); // the window's is 12
    QCOMPARE(second.family(), chosen.family());
    QCOMPARE(second.pointSize(), 18);
}

void FontTest::acceptedFontReachesWhatHasNoneOfItsOwn()
{
    const FontKeeper keeper;
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboVerse, 15);
    const qreal heightBefore = form.textBrowser->document()->size().height();
    QVERIFY(inFontDialog(window, [](QFontDialog& dialog) {
        dialog.setCurrentFont(QFont(QStringLiteral("DejaVu Sans"), 22));
        dialog.accept();
    }));
    QCoreApplication::processEvents();
    for (const QWidget* widget :
         {static_cast<const QWidget*>(&form), static_cast<const QWidget*>(form.textBrowser),
          static_cast<const QWidget*>(form.groupSearch), static_cast<const QWidget*>(form.checkPartialWord),
          static_cast<const QWidget*>(form.listSearchResults), static_cast<const QWidget*>(form.comboBook)}) {
        QCOMPARE(widget->font().pointSize(), 22);
        QCOMPARE(widget->font().family(), QStringLiteral("DejaVu Sans"));
    }
    QCOMPARE(form.menubar->font().pointSize(), 12);
    QCOMPARE(form.menubar->font().family(), QStringLiteral("Courier 10 Pitch"));
    QCOMPARE(QApplication::font().pointSize(), 22);
    QVERIFY(form.textBrowser->document()->size().height() > heightBefore * 1.3);
    QCOMPARE(window.red(), QStringLiteral("[16] Битие 1:16"));
}

void FontTest::zoomedPageHasTheAcceptedFontToo()
{
    const FontKeeper keeper;
    FormFixture window;
    openOn(window);
    QWidget* page = window.form().textBrowser->viewport();
    const QPoint up(0, 120);
    QWheelEvent notch(page->rect().center(), page->mapToGlobal(page->rect().center()), {}, up, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(page, &notch);
    QCOMPARE(window.form().textBrowser->font().pointSize(), 13);
    QVERIFY(inFontDialog(window, [](QFontDialog& dialog) {
        dialog.setCurrentFont(QFont(QStringLiteral("DejaVu Sans"), 22));
        dialog.accept();
    }));
    QCOMPARE(window.form().textBrowser->font().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(window.form().textBrowser->font().pointSize(), 22);
}

/// What a tool bar hides, the keyboard does not reach.
void FontTest::largeFontLeavesTheLocationBoxesInSight()
{
    const FontKeeper keeper;
    FormFixture window;
    openOn(window);
    BibleForm& form = window.form();
    for (const int size : {12, 24, 36, 48}) {
        QFont font = form.font();
        font.setPointSize(size);
        form.setFont(font);
        QCoreApplication::processEvents();
        QVERIFY2(form.comboBook->isVisible() && form.comboChapter->isVisible() &&
                     form.comboVerse->isVisible(),
                 qPrintable(QString::number(size)));
    }
}

void FontTest::largeFontKeepsThePanelsPlaces()
{
    const FontKeeper keeper;
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    QVERIFY(inFontDialog(window, [](QFontDialog& dialog) {
        dialog.setCurrentFont(QFont(QStringLiteral("DejaVu Sans"), 24));
        dialog.accept();
    }));
    QCoreApplication::processEvents();
    QCOMPARE(form.groupSearch->width(), 181);
    QVERIFY(QFontMetrics(form.groupSearch->paintedFont()).height() < form.groupSearchOptions->y());
    QCOMPARE(form.checkRedoSearch->geometry(), QRect(0, 70, 110, 24));
    const QFontMetrics painted(form.checkRedoSearch->paintedFont());
    QVERIFY(painted.horizontalAdvance(form.checkRedoSearch->text()) < 110);
}

/// Rows that differ only in their last digit look different.
void FontTest::largeFontLeavesTheHitsApart()
{
    FormFixture window;
    openOn(window);
    BibleForm& form = window.form();
    form.checkPartialWord->setChecked(true);
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("псалтир 5:1"));
    FormFixture::press(Qt::Key_Return);
    setLargeFont(form);
    QListView* list = form.listSearchResults;
    const int lastRow = list->model()->rowCount() - 1;
    const QModelIndex row = list->model()->index(lastRow - 1, 0), next = list->model()->index(lastRow, 0);
    QCOMPARE(row.data().toString().chopped(1), next.data().toString().chopped(1));
    list->scrollTo(next);
    QCoreApplication::processEvents();
    const auto picture = [&](const QModelIndex& index) {
        return list->viewport()->grab(list->visualRect(index)).toImage();
    };
    QVERIFY(list->visualRect(next).right() < list->viewport()->width());
    QVERIFY(picture(row) != picture(next));
    QCOMPARE(list->font().pointSize(), 24);
}

void FontTest::largeFontLeavesTheSearchTextWhole()
{
    FormFixture window;
    openOn(window);
    BibleForm& form = window.form();
    const QFont before = form.comboSearchText->lineEdit()->font();
    setLargeFont(form);
    const QLineEdit* field = form.comboSearchText->lineEdit();
    QVERIFY(field->fontMetrics().height() <= field->height());
    QCOMPARE(form.comboSearchText->font().pointSize(), 24);
    QCOMPARE(form.comboSearchText->geometry(), QRect(0, 0, 130, 30));
    QCOMPARE(form.comboBook->lineEdit()->font().pointSize(), 24); // has enough space
    form.setFont(before);
    QCoreApplication::processEvents();
    QCOMPARE(field->font().pointSizeF(), before.pointSizeF());
}

/// A wider menu does not change the painted texts.
void FontTest::largeFontLeavesTheMenusWhole()
{
    const FontKeeper keeper;
    FormFixture window;
    window.install("а", alphaModule("Стар превод на Библията"));
    window.install("б", betaModule("Нов"));
    BibleForm& form = window.open();
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 24));
    setLargeFont(form);
    for (QMenu* menu :
         {static_cast<QMenu*>(form.menuTranslations), form.menuView, form.menuFile, form.menuHelp}) {
        menu->popup({0, 0});
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        // is right-aligned
        const int key = menu->fontMetrics().horizontalAdvance(QStringLiteral("F8")) + 40;
        const QRect texts = menu->rect().adjusted(2, 2, -key, -2);
        const QImage fitting = menu->grab(texts).toImage();
        menu->setMinimumWidth(menu->width() + 150);
        menu->resize(menu->minimumWidth(), menu->height());
        QCoreApplication::processEvents();
        QVERIFY2(menu->grab(texts).toImage() == fitting, menu->objectName().toUtf8().constData());
        menu->close();
    }
}

QTEST_MAIN(FontTest)
#include "font_test.moc"
