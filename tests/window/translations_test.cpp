#include "chapter_view.h"
#include "combo_box.h"
#include "form_fixture.h"
#include "panel_box.h"
#include "popup_menu.h"
#include "tab_bar.h"

#include <QTest>
#include <QToolBar>

using namespace window_test;
using test_support::makeModule;
using test_support::plainBook;

namespace {

/// Counts how often a translation is selected.
class CountingForm : public BibleForm
{
public:
    int selections = 0;
    void tabsText_selected(int tabID) override
    {
        ++selections;
        BibleForm::tabsText_selected(tabID);
    }
};

/// Modules А, Б, В with one book each, so that the page shows which translation it is.
void installThree(const FormFixture& window)
{
    window.install("а", makeModule("А", {plainBook(0, "Битие-А", {3, 4, 5})}));
    window.install("б", makeModule("Б", {plainBook(0, "Битие-Б", {3, 4, 5})}));
    window.install("в", makeModule("В", {plainBook(0, "Битие-В", {3, 4, 5})}));
}

QStringList list(const char* texts) { return QString::fromUtf8(texts).split(u' '); }

} // namespace

/// Opening, closing and switching translations.
class TranslationsTest : public QObject
{
    Q_OBJECT

private slots:
    void openingAppendsATabAndShowsIt();
    void openingBesideOthersSelectsTwice();
    void choosingAnOpenOneClosesIt();
    void switchingShowsTheOther();
    void clickOnTheCurrentTabDoesNothing();
    void keysMoveAlongTheTabs();
    void closingAnotherKeepsTheCurrentOne();
    void closingTheCurrentOneShowsThePreviousTabButSelectsNone();
    void indexThatEqualsTheIdentifierSelectsTheNeighbour();
    void identifiersAreNeverReused();
    void closingTheOnlyOneKeepsThePage();
    void reopeningGoesBackToThePlace();
    void equalTitlesCloseTheFirstTab();
    void ampersandInATitleIsKept();
    void closingAllInAnyOrderAndEndingIsClean();
};

void TranslationsTest::openingAppendsATabAndShowsIt()
{
    FormFixture window;
    installThree(window);
    window.open();
    window.chooseTranslation(2);
    QCOMPARE(window.tabs(), list("А [В]"));
    QCOMPARE(window.checked(), list("А В"));
    QCOMPARE(window.place(), QStringLiteral("Битие-В 1 1"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-В 1:1"));
    window.chooseTranslation(1);
    QCOMPARE(window.tabs(), list("А В [Б]"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 1:1"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void TranslationsTest::openingBesideOthersSelectsTwice()
{
    FormFixture window;
    installThree(window);
    const auto& form = window.open<CountingForm>();
    window.chooseTranslation(1);
    QCOMPARE(form.selections, 2);
    window.chooseTranslation(1);
    window.chooseTranslation(0);
    QCOMPARE(form.selections, 2);
    window.chooseTranslation(1); // the only tab is already current
    QCOMPARE(form.selections, 3);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 1:1"));
}

void TranslationsTest::choosingAnOpenOneClosesIt()
{
    FormFixture window;
    installThree(window);
    window.open();
    window.chooseTranslation(1);
    window.chooseTranslation(0);
    QCOMPARE(window.tabs(), list("[Б]"));
    QCOMPARE(window.checked(), list("Б"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 1:1"));
}

void TranslationsTest::switchingShowsTheOther()
{
    FormFixture window;
    installThree(window);
    const auto& form = window.open<CountingForm>();
    window.chooseTranslation(1);
    const int before = form.selections;
    window.clickTab(0);
    QCOMPARE(form.selections, before + 1);
    QCOMPARE(window.tabs(), list("[А] Б"));
    QCOMPARE(window.place(), QStringLiteral("Битие-А 1 1"));
    QCOMPARE(window.page().size(), 3);
}

void TranslationsTest::clickOnTheCurrentTabDoesNothing()
{
    FormFixture window;
    installThree(window);
    const auto& form = window.open<CountingForm>();
    window.clickTab(0);
    QCOMPARE(form.selections, 0);
}

void TranslationsTest::keysMoveAlongTheTabs()
{
    FormFixture window;
    installThree(window);
    const BibleForm& form = window.open();
    window.chooseTranslation(1);
    form.tabsText->setFocus(Qt::TabFocusReason);
    FormFixture::press(Qt::Key_Left);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-А 1:1"));
    FormFixture::press(Qt::Key_Left); // no wrapping
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-А 1:1"));
    FormFixture::press(Qt::Key_Right);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 1:1"));
}

void TranslationsTest::closingAnotherKeepsTheCurrentOne()
{
    FormFixture window;
    installThree(window);
    const auto& form = window.open<CountingForm>();
    window.chooseTranslation(1);
    window.chooseTranslation(2);
    const int before = form.selections;
    window.chooseTranslation(0); // index 0, the current tab has the identifier 2
    QCOMPARE(form.selections, before);
    QCOMPARE(window.tabs(), list("Б [В]"));
    window.pick(form.comboChapter, 2);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-В 3:1"));
}

void TranslationsTest::closingTheCurrentOneShowsThePreviousTabButSelectsNone()
{
    FormFixture window;
    installThree(window);
    const auto& form = window.open<CountingForm>();
    window.chooseTranslation(1);
    window.chooseTranslation(2);
    window.clickTab(0);
    window.clickTab(2);
    const int before = form.selections;
    window.chooseTranslation(2); // А was current before it
    QCOMPARE(window.tabs(), list("[А] Б"));
    QCOMPARE(form.selections, before);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-В 1:1"));
    window.clickTab(0); // the user chooses it
    QCOMPARE(form.selections, before + 1);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-А 1:1"));
    window.clickTab(0);
    QCOMPARE(form.selections, before + 1);
    window.clickTab(1);
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 1:1"));
}

void TranslationsTest::indexThatEqualsTheIdentifierSelectsTheNeighbour()
{
    for (const int current : {0, 1}) { // index after the first closing
        FormFixture window;
        installThree(window);
        const auto& form = window.open<CountingForm>();
        window.chooseTranslation(1);
        window.chooseTranslation(2);
        window.chooseTranslation(0);
        window.clickTab(current);
        const int before = form.selections;
        window.chooseTranslation(2); // index 1, and Б, which the bar now reports, has the identifier 1
        QCOMPARE(form.selections, before + 1);
        QCOMPARE(window.tabs(), list("[Б]"));
        QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 1:1"));
        window.pick(form.comboChapter, 1);
        QCOMPARE(window.red(), QStringLiteral("[1] Битие-Б 2:1"));
    }
}

void TranslationsTest::identifiersAreNeverReused()
{
    FormFixture window;
    installThree(window);
    window.open();
    window.chooseTranslation(0);
    window.chooseTranslation(0); // has the identifier 1 now, although the bar was empty
    window.chooseTranslation(1);
    window.chooseTranslation(1); // index 1 equals it
    QCOMPARE(window.tabs(), list("[А]"));
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-А 1:1"));
}

void TranslationsTest::closingTheOnlyOneKeepsThePage()
{
    FormFixture window;
    installThree(window);
    const BibleForm& form = window.open();
    window.chooseTranslation(0);
    QCOMPARE(window.tabs(), QStringList());
    QCOMPARE(window.checked(), QStringList());
    QCOMPARE(window.red(), QStringLiteral("[1] Битие-А 1:1"));
    QVERIFY(form.textBrowser->isVisible());
    QVERIFY(form.tabsText->isVisible());
    QVERIFY(form.groupSearch->isEnabled());
    QVERIFY(form.toolbarLocation->isEnabled());
}

void TranslationsTest::reopeningGoesBackToThePlace()
{
    FormFixture window;
    installThree(window);
    const BibleForm& form = window.open();
    window.pick(form.comboChapter, 2);
    window.pick(form.comboVerse, 4);
    window.chooseTranslation(0);
    window.chooseTranslation(0);
    QCOMPARE(window.tabs(), list("[А]"));
    QCOMPARE(window.place(), QStringLiteral("Битие-А 3 5"));
    QCOMPARE(window.red(), QStringLiteral("[5] Битие-А 3:5"));
}

void TranslationsTest::equalTitlesCloseTheFirstTab()
{
    FormFixture window;
    window.install("а", makeModule("Същото", {plainBook(0, "Битие-А", {3})}));
    window.install("б", makeModule("Същото", {plainBook(0, "Битие-Б", {3})}));
    const BibleForm& form = window.open();
    window.chooseTranslation(1);
    QCOMPARE(window.tabs(), list("Същото [Същото]"));
    window.chooseTranslation(1); // closes the first tab and clears the check mark of the second
    QCOMPARE(window.tabs(), list("[Същото]"));
    QVERIFY(form.menuTranslations->isItemChecked(0));
    QVERIFY(!form.menuTranslations->isItemChecked(1));
    window.pick(form.comboVerse, 1);
    QCOMPARE(window.red(), QStringLiteral("[2] Битие-Б 1:2"));
    window.chooseTranslation(0);
    QCOMPARE(window.tabs(), QStringList());
}

void TranslationsTest::ampersandInATitleIsKept()
{
    FormFixture window;
    installThree(window);
    window.install("г", makeModule("Г & Ще", {plainBook(0, "Битие-Г", {3})}));
    const BibleForm& form = window.open();
    window.chooseTranslation(3);
    QCOMPARE(form.menuTranslations->text(3), QStringLiteral("Г & Ще"));
    QCOMPARE(form.tabsText->label(1), QStringLiteral("Г & Ще"));
    window.chooseTranslation(3);
    QCOMPARE(window.tabs(), list("[А]"));
    QCOMPARE(window.checked(), list("А"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void TranslationsTest::closingAllInAnyOrderAndEndingIsClean()
{
    const std::vector<std::vector<int>> orders = {{0, 1, 2}, {2, 1, 0}, {1, 0, 2}, {1, 2, 0}};
    for (const std::vector<int>& order : orders) {
        FormFixture window;
        installThree(window);
        window.open();
        window.chooseTranslation(1);
        window.chooseTranslation(2);
        for (const int translation : order)
            window.chooseTranslation(translation);
        QCOMPARE(window.tabs(), QStringList());
        window.chooseTranslation(order.front());
        QCOMPARE(window.tabs().size(), 1);
        window.closeForm();
        QVERIFY(window.takeBoxes().isEmpty());
    }
}

QTEST_MAIN(TranslationsTest)
#include "translations_test.moc"
