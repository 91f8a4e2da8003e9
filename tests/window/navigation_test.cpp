#include "chapter_view.h"
#include "combo_box.h"
#include "form_fixture.h"

#include <QAction>
#include <QApplication>
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

void turnWheel(QWidget* widget, int notches)
{
    const QPointF middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

} // namespace

/// Navigation with the three boxes and by keys.
class NavigationTest : public QObject
{
    Q_OBJECT

private slots:
    void eachBoxMovesByChoiceFromItsList();
    void arrowsMoveAndStopAtTheEnds();
    void wheelMoves();
    void typedTextAndReturnMove_data();
    void typedTextAndReturnMove();
    void returnCompletesTheBook();
    void unknownTextDoesNothing();
    void unconfirmedTextGoesWhenTheFocusLeaves();
    void chapterAndVerseAreClamped();
    void chapterAndVerseAreKeptWhereTheyExist();
    void gotoKeyFocusesTheBookBox();
    void gotoKeyLetsTypingReplaceTheBook();
    void gotoKeyWorksWithoutMenuBar();
};

void NavigationTest::eachBoxMovesByChoiceFromItsList()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboBook, 1);
    QCOMPARE(window.place(), QStringLiteral("Рут 1 1"));
    QCOMPARE(window.page().size(), 22);
    window.pick(form.comboChapter, 1);
    QCOMPARE(window.place(), QStringLiteral("Рут 2 1"));
    QCOMPARE(window.page().size(), 23);
    QCOMPARE(form.comboVerse->count(), 23);
    window.pick(form.comboVerse, 22);
    QCOMPARE(window.place(), QStringLiteral("Рут 2 23"));
    QCOMPARE(window.red(), QStringLiteral("[23] Рут 2:23"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void NavigationTest::arrowsMoveAndStopAtTheEnds()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    form.comboBook->setFocus();
    FormFixture::press(Qt::Key_Up);
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
    FormFixture::press(Qt::Key_Down);
    FormFixture::press(Qt::Key_Down);
    FormFixture::press(Qt::Key_Down);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 1"));
    form.comboChapter->setFocus();
    FormFixture::press(Qt::Key_Down);
    form.comboVerse->setFocus();
    FormFixture::press(Qt::Key_Down);
    FormFixture::press(Qt::Key_Down);
    FormFixture::press(Qt::Key_Up);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 2"));
    QCOMPARE(window.red(), QStringLiteral("[2] Псалтир 2:2"));
}

void NavigationTest::wheelMoves()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    turnWheel(form.comboChapter, -1);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 2:1"));
    turnWheel(form.comboVerse, -1);
    turnWheel(form.comboVerse, -1);
    turnWheel(form.comboVerse, 1);
    QCOMPARE(window.red(), QStringLiteral("[2] Битие 2:2"));
    turnWheel(form.comboBook, 1);
    QCOMPARE(window.place(), QStringLiteral("Битие 2 2"));
    turnWheel(form.comboBook, -1);
    QCOMPARE(window.place(), QStringLiteral("Рут 2 2"));
}

void NavigationTest::typedTextAndReturnMove_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("box");
    QTest::addColumn<QString>("place");
    QTest::newRow("as listed") << QStringLiteral("Рут") << 0 << QStringLiteral("Рут 1 1");
    QTest::newRow("small letters") << QStringLiteral("псалтир") << 0 << QStringLiteral("Псалтир 1 1");
    QTest::newRow("capitals") << QStringLiteral("ПСАЛТИР") << 0 << QStringLiteral("Псалтир 1 1");
    QTest::newRow("chapter") << QStringLiteral("50") << 1 << QStringLiteral("Битие 50 1");
    QTest::newRow("verse") << QStringLiteral("31") << 2 << QStringLiteral("Битие 1 31");
    QTest::newRow("past the end") << QStringLiteral("51") << 1 << QStringLiteral("Битие 1 1");
    QTest::newRow("zero") << QStringLiteral("0") << 1 << QStringLiteral("Битие 1 1");
    QTest::newRow("nothing") << QString() << 1 << QStringLiteral("Битие 1 1");
}

void NavigationTest::typedTextAndReturnMove()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    QFETCH(QString, typed);
    QFETCH(int, box);
    QFETCH(QString, place);
    qt3::ComboBox* const boxes[] = {form.comboBook, form.comboChapter, form.comboVerse};
    FormFixture::typeInto(boxes[box], typed);
    FormFixture::press(Qt::Key_Return);
    form.textBrowser->setFocus();
    QCOMPARE(window.place(), place);
    const QStringList parts = place.split(u' ');
    QCOMPARE(window.red(), QStringLiteral("[%3] %1 %2:%3").arg(parts[0], parts[1], parts[2]));
    QVERIFY(window.takeBoxes().isEmpty());
}

void NavigationTest::returnCompletesTheBook()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboBook, QStringLiteral("пс"));
    QCOMPARE(form.comboBook->currentText().toLower(), QStringLiteral("псалтир"));
    QCOMPARE(form.comboBook->lineEdit()->selectedText(), QStringLiteral("алтир"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1")); // not before Return
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 1"));
}

void NavigationTest::unknownTextDoesNothing()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboBook, QStringLiteral("Несъществуваща"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
    QCOMPARE(form.comboBook->count(), 3);
    QVERIFY(window.takeBoxes().isEmpty());
}

void NavigationTest::unconfirmedTextGoesWhenTheFocusLeaves()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboBook, QStringLiteral("Рут"));
    form.textBrowser->setFocus();
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
}

void NavigationTest::chapterAndVerseAreClamped()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboChapter, 29);
    window.pick(form.comboVerse, 30);
    window.pick(form.comboBook, 1);
    QCOMPARE(window.place(), QStringLiteral("Рут 4 22"));
    QCOMPARE(window.red(), QStringLiteral("[22] Рут 4:22"));
    window.pick(form.comboChapter, 2);
    QCOMPARE(window.place(), QStringLiteral("Рут 3 18"));
}

void NavigationTest::chapterAndVerseAreKeptWhereTheyExist()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    window.pick(form.comboChapter, 2);
    window.pick(form.comboVerse, 4);
    window.pick(form.comboBook, 2);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 3 5"));
    window.pick(form.comboChapter, 0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 5"));
}

void NavigationTest::gotoKeyFocusesTheBookBox()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    for (QWidget* from :
         {static_cast<QWidget*>(form.textBrowser), static_cast<QWidget*>(form.comboSearchText),
          static_cast<QWidget*>(form.comboVerse)}) {
        from->setFocus();
        QVERIFY(!form.comboBook->hasFocus());
        FormFixture::press(Qt::Key_F5);
        QVERIFY(form.comboBook->hasFocus());
    }
    QCOMPARE(window.place(), QStringLiteral("Битие 1 1"));
}

void NavigationTest::gotoKeyLetsTypingReplaceTheBook()
{
    FormFixture window;
    openOn(window);
    window.form().textBrowser->setFocus();
    FormFixture::press(Qt::Key_F5);
    FormFixture::type(QStringLiteral("рут"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.place(), QStringLiteral("Рут 1 1"));
}

void NavigationTest::gotoKeyWorksWithoutMenuBar()
{
    FormFixture window;
    openOn(window);
    const BibleForm& form = window.form();
    form.menubar->hide();
    form.textBrowser->setFocus();
    FormFixture::press(Qt::Key_F5);
    QVERIFY(form.comboBook->hasFocus());
    FormFixture::press(Qt::Key_F8);
    QVERIFY(form.viewChapterHyperLinks->isChecked());
}

QTEST_MAIN(NavigationTest)
#include "navigation_test.moc"
