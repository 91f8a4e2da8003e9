#include "chapter_view.h"
#include "combo_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "tab_bar.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

using namespace window_test;
using test_support::makeModule;
using test_support::plainBook;

/// What stays the same after a switch of translation, and the window without a current translation.
class PlaceTest : public QObject
{
    Q_OBJECT

private:
    /// Opens Алфа and Бета and closes Бета: its page is still shown, but none is current.
    static void openWithNoneCurrent(FormFixture& window)
    {
        window.install("а", alphaModule());
        window.install("б", betaModule());
        BibleForm& form = window.open();
        window.chooseTranslation(1);
        window.pick(form.comboBook, 0);
        window.pick(form.comboChapter, 1);
        window.pick(form.comboVerse, 3);
        QCOMPARE(window.red(), QStringLiteral("[4] Псалми 2:4"));
        window.chooseTranslation(1);
        QCOMPARE(window.tabs(), QStringList{QStringLiteral("[Алфа]")});
    }

private slots:
    void placeIsKeptWhereBooksStandInAnotherOrder();
    void boxesAgreeAfterASwitchIntoTheFirstBook();
    void differencesShiftTheSecondChapter();
    void missingBookGivesTheBeginning();
    void versePastTheEndMarksNoneAndKeepsTheBox();
    void booksAndWordsAreExchanged();
    void typedSearchTextSurvivesASwitch();
    void scrollingFollowsTheVerse();
    void noneCurrentBoxesGoBackToThePlaceShown_data();
    void noneCurrentBoxesGoBackToThePlaceShown();
    void noneCurrentTypedTextDoesNothing();
    void noneCurrentSearchDoesNothing();
    void noneCurrentLinksDoNothing();
    void noneCurrentLinksToggleWaits();
    void openingAgainRecovers();
};

void PlaceTest::placeIsKeptWhereBooksStandInAnotherOrder()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    const BibleForm& form = window.open();
    window.pick(form.comboChapter, 2);
    window.pick(form.comboVerse, 15);
    window.chooseTranslation(1);
    QCOMPARE(window.place(), QStringLiteral("Битие 3 16"));
    QCOMPARE(form.comboBook->currentIndex(), 1);
    QCOMPARE(form.comboChapter->count(), 3);
    QCOMPARE(window.red(), QStringLiteral("[16] Битие 3:16"));
    window.clickTab(0);
    QCOMPARE(window.place(), QStringLiteral("Битие 3 16"));
    QCOMPARE(form.comboChapter->count(), 50);
}

void PlaceTest::boxesAgreeAfterASwitchIntoTheFirstBook()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    const BibleForm& form = window.open();
    window.pick(form.comboBook, 2);
    window.pick(form.comboChapter, 1);
    window.pick(form.comboVerse, 6);
    window.chooseTranslation(1);
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 7"));
    QCOMPARE(form.comboBook->currentIndex(), 0);
    QCOMPARE(form.comboChapter->count(), 3);
    QCOMPARE(form.comboVerse->count(), 12);
    QCOMPARE(window.red(), QStringLiteral("[7] Псалми 2:7"));
    window.clickTab(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 7"));
    QCOMPARE(form.comboChapter->count(), 5);
}

void PlaceTest::differencesShiftTheSecondChapter()
{
    FormFixture window;
    window.install("а", alphaModule());
    // one verse lower in Бета's second psalm: once with the global number of the book, once with Бета's own
    window.install("б", betaModule("Бета", "19 2 1 0 1\n1 2 1 0 1\n"));
    const BibleForm& form = window.open();
    window.pick(form.comboBook, 2);
    window.pick(form.comboChapter, 1);
    window.pick(form.comboVerse, 6);
    window.chooseTranslation(1);
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 6"));
    QCOMPARE(window.red(), QStringLiteral("[6] Псалми 2:6"));
    window.clickTab(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 7"));
    window.pick(form.comboChapter, 2);
    window.clickTab(1);
    QCOMPARE(window.place(), QStringLiteral("Псалми 3 7"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void PlaceTest::missingBookGivesTheBeginning()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    const BibleForm& form = window.open();
    window.pick(form.comboBook, 1);
    window.pick(form.comboChapter, 2);
    window.pick(form.comboVerse, 9);
    QCOMPARE(window.red(), QStringLiteral("[10] Рут 3:10"));
    window.chooseTranslation(1);
    QCOMPARE(window.place(), QStringLiteral("Псалми 1 1"));
    QCOMPARE(window.red(), QStringLiteral("[1] Псалми 1:1"));
    QVERIFY(window.takeBoxes().isEmpty());
    window.clickTab(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 1"));
}

void PlaceTest::versePastTheEndMarksNoneAndKeepsTheBox()
{
    FormFixture window;
    window.install("а", makeModule("А", {plainBook(0, "Битие", {9, 9})}));
    window.install("б", makeModule("Б", {plainBook(0, "Битие", {9, 4})}));
    const BibleForm& form = window.open();
    window.pick(form.comboChapter, 1);
    window.pick(form.comboVerse, 7);
    window.chooseTranslation(1);
    QCOMPARE(window.page().size(), 4);
    QCOMPARE(window.red(), QString());
    QCOMPARE(form.comboVerse->count(), 4);
    QVERIFY(form.comboVerse->currentIndex() < 4);
    QVERIFY(!form.comboVerse->currentText().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
    window.clickTab(0);
    QCOMPARE(window.place(), QStringLiteral("Битие 2 8")); // the position itself was not clamped
}

void PlaceTest::booksAndWordsAreExchanged()
{
    FormFixture window;
    window.install("а", makeModule("А", {{0, "Битие", {{"едно две"}}}}));
    window.install("б", makeModule("Б", {{0, "Начало", {{"три две четири"}}}}));
    const BibleForm& form = window.open();
    QCOMPARE(window.offered(form.comboSearchText),
             (QStringList{QStringLiteral("две"), QStringLiteral("едно")}));
    window.chooseTranslation(1);
    QCOMPARE(window.offered(form.comboSearchText),
             (QStringList{QStringLiteral("две"), QStringLiteral("три"), QStringLiteral("четири")}));
    QCOMPARE(window.offered(form.comboBook), QStringList{QStringLiteral("Начало")});
    window.clickTab(0);
    QCOMPARE(window.offered(form.comboSearchText),
             (QStringList{QStringLiteral("две"), QStringLiteral("едно")}));
    QCOMPARE(form.comboSearchText->currentText(), QString());
}

void PlaceTest::typedSearchTextSurvivesASwitch()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    const BibleForm& form = window.open();
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("незавършен тек"));
    window.chooseTranslation(1);
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("незавършен тек"));
    window.clickTab(0);
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("незавършен тек"));
}

void PlaceTest::scrollingFollowsTheVerse()
{
    FormFixture window;
    window.install("а", alphaModule());
    window.install("б", betaModule());
    const BibleForm& form = window.open();
    window.pick(form.comboVerse, 18);
    QVERIFY(window.isCentred(18));
    window.chooseTranslation(1);
    QCOMPARE(window.red(), QStringLiteral("[19] Битие 1:19"));
    QVERIFY(window.isCentred(18));
    window.clickTab(0);
    QVERIFY(window.isCentred(18));
}

void PlaceTest::noneCurrentBoxesGoBackToThePlaceShown_data()
{
    QTest::addColumn<int>("box");
    QTest::newRow("book") << 0;
    QTest::newRow("chapter") << 1;
    QTest::newRow("verse") << 2;
}

void PlaceTest::noneCurrentBoxesGoBackToThePlaceShown()
{
    QFETCH(int, box);
    FormFixture window;
    openWithNoneCurrent(window);
    const BibleForm& form = window.form();
    const QStringList page = window.page();
    qt3::ComboBox* const boxes[] = {form.comboBook, form.comboChapter, form.comboVerse};
    window.pick(boxes[box], box == 0 ? 1 : 2);
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 4"));
    boxes[box]->setFocus();
    FormFixture::press(Qt::Key_Down);
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 4"));
    QCOMPARE(window.page(), page);
    QCOMPARE(window.red(), QStringLiteral("[4] Псалми 2:4"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void PlaceTest::noneCurrentTypedTextDoesNothing()
{
    FormFixture window;
    openWithNoneCurrent(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboChapter, QStringLiteral("3"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 4"));
    QCOMPARE(window.red(), QStringLiteral("[4] Псалми 2:4"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void PlaceTest::noneCurrentSearchDoesNothing()
{
    FormFixture window;
    openWithNoneCurrent(window);
    const BibleForm& form = window.form();
    QTest::mouseClick(form.btnSearch, Qt::LeftButton);
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("Псалми"));
    FormFixture::press(Qt::Key_Return);
    QTest::mouseClick(form.btnSearch, Qt::LeftButton);
    QVERIFY(window.rows().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("Псалми"));
    QVERIFY(!form.btnSearch->isDown());
}

void PlaceTest::noneCurrentLinksDoNothing()
{
    FormFixture window;
    window.install("а", alphaModule());
    const BibleForm& form = window.open();
    FormFixture::press(Qt::Key_F8);
    window.chooseTranslation(0);
    const QStringList page = window.page();
    window.clickLink(6);
    QCOMPARE(window.page(), page);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие 1:1"));
    QVERIFY(form.viewChapterHyperLinks->isChecked());
    QVERIFY(window.takeBoxes().isEmpty());
}

void PlaceTest::noneCurrentLinksToggleWaits()
{
    FormFixture window;
    openWithNoneCurrent(window);
    FormFixture::press(Qt::Key_F8);
    QVERIFY(window.links().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
    window.chooseTranslation(1);
    QVERIFY(!window.links().isEmpty());
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 4"));
}

void PlaceTest::openingAgainRecovers()
{
    FormFixture window;
    openWithNoneCurrent(window);
    const BibleForm& form = window.form();
    window.chooseTranslation(1);
    QCOMPARE(window.place(), QStringLiteral("Псалми 2 4"));
    QCOMPARE(window.red(), QStringLiteral("[4] Псалми 2:4"));
    window.pick(form.comboVerse, 9);
    QCOMPARE(window.red(), QStringLiteral("[10] Псалми 2:10"));
    QVERIFY(window.takeBoxes().isEmpty());
}

QTEST_MAIN(PlaceTest)
#include "place_test.moc"
