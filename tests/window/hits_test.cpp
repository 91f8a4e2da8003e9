#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "hit_list_model.h"
#include "list_box.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace window_test;
using test_support::makeModule;

namespace {

/// 50 verses with "дума", every tenth also with "рядко".
test_support::ModuleFiles hitsModule(const std::string& title, const std::string& book,
                                     const std::string& diff = {})
{
    test_support::Book made{18, book, {{}, {}}};
    for (int verse = 1; verse <= 25; ++verse)
        for (auto& chapter : made.chapters)
            chapter.push_back((verse % 10 == 0 ? "рядко дума " : "дума ") + std::to_string(verse));
    return makeModule(title, {made}, diff);
}

void searchFor(const FormFixture& window, const char* text)
{
    FormFixture::typeInto(window.form().comboSearchText, QString::fromUtf8(text));
    FormFixture::press(Qt::Key_Return);
}

QStringList list(const char* texts) { return QString::fromUtf8(texts).split(QStringLiteral(", ")); }

} // namespace

/// The list of hits, and the long lists.
class HitsTest : public QObject
{
    Q_OBJECT

private slots:
    void clickShowsTheHitInTheMiddle();
    void keysShowTheHits();
    void draggingShowsTheHits();
    void firstHitIsShownWhereTheListHasTheFocus();
    void hitsStayAfterASwitchAndShowTheSamePassage();
    void repeatedSearchRefillsTheHits();
    void repeatedSearchPutsItsTextBack();
    void withoutASearchNothingIsRepeated();
    void repeatedSearchThatFindsNothingSaysSo();
    void closingTheTranslationKeepsTheRows();
    void thirtyOneThousandHitsAreListed();
    void sixtyThousandWordsAreOffered();
};

void HitsTest::clickShowsTheHitInTheMiddle()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.open();
    searchFor(window, "рядко");
    QCOMPARE(window.rows(), list("Пса 1:10, Пса 1:20, Пса 2:10, Пса 2:20"));
    window.clickHit(3);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 20"));
    QCOMPARE(window.red(), QStringLiteral("[20] рядко дума 20"));
    QVERIFY(window.isCentred(19));
    window.clickHit(0);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 10"));
    QCOMPARE(window.rows().size(), 4);
}

void HitsTest::keysShowTheHits()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    const BibleForm& form = window.open();
    searchFor(window, "рядко");
    form.listSearchResults->setFocus(Qt::TabFocusReason);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 10")); // the first one immediately
    FormFixture::press(Qt::Key_Down);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 20"));
    FormFixture::press(Qt::Key_End);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 20"));
    FormFixture::press(Qt::Key_Down);
    FormFixture::press(Qt::Key_Up);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 10"));
    FormFixture::press(Qt::Key_Home);
    QCOMPARE(window.red(), QStringLiteral("[10] рядко дума 10"));
}

void HitsTest::draggingShowsTheHits()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    const BibleForm& form = window.open();
    searchFor(window, "рядко");
    QWidget* rows = form.listSearchResults->viewport();
    const auto middle = [&](int row) {
        return form.listSearchResults->visualRect(form.listSearchResults->model()->index(row, 0)).center();
    };
    QTest::mousePress(rows, Qt::LeftButton, {}, middle(0));
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 10"));
    QMouseEvent move(QEvent::MouseMove, middle(2), rows->mapToGlobal(middle(2)), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(rows, &move);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 2 10"));
    QTest::mouseRelease(rows, Qt::LeftButton, {}, middle(2));
}

void HitsTest::firstHitIsShownWhereTheListHasTheFocus()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    const BibleForm& form = window.open();
    searchFor(window, "рядко");
    window.clickHit(3);
    QVERIFY(form.listSearchResults->hasFocus());
    QTest::mouseClick(form.btnSearch, Qt::LeftButton); // a click does not move the focus from the list
    QVERIFY(form.listSearchResults->hasFocus());
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 10"));
    QCOMPARE(form.listSearchResults->currentItem(), 0);
}

void HitsTest::hitsStayAfterASwitchAndShowTheSamePassage()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.install("б", hitsModule("Б", "Дрънкалка", "19 2 1 0 1\n1 2 1 0 1\n")); // chapter 2 one verse lower
    const BibleForm& form = window.open();
    searchFor(window, "рядко");
    window.chooseTranslation(1);
    QCOMPARE(window.rows(), list("Пса 1:10, Пса 1:20, Пса 2:10, Пса 2:20"));
    window.clickHit(3);
    QCOMPARE(window.place(), QStringLiteral("Дрънкалка 2 19"));
    QCOMPARE(window.red(), QStringLiteral("[19] дума 19"));
    QCOMPARE(form.listSearchResults->currentIndex().data().toString(), QStringLiteral("Пса 2:20"));
    window.clickHit(1);
    QCOMPARE(window.place(), QStringLiteral("Дрънкалка 1 20"));
}

void HitsTest::repeatedSearchRefillsTheHits()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.install("б", makeModule("Б", {{18, "Дрънкалка", {{"няма", "тук рядко"}}}}));
    const BibleForm& form = window.open();
    QTest::mouseClick(form.checkRedoSearch, Qt::LeftButton, {}, QPoint(8, 12));
    searchFor(window, "рядко");
    window.chooseTranslation(1);
    QCOMPARE(window.rows(), list("Дръ 1:2"));
    window.clickTab(0);
    QCOMPARE(window.rows(), list("Пса 1:10, Пса 1:20, Пса 2:10, Пса 2:20"));
    QTest::mouseClick(form.checkRedoSearch, Qt::LeftButton, {}, QPoint(8, 12));
    window.clickTab(1);
    QCOMPARE(window.rows().size(), 4);
    QVERIFY(window.takeBoxes().isEmpty());
}

void HitsTest::repeatedSearchPutsItsTextBack()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.install("б", hitsModule("Б", "Дрънкалка"));
    const BibleForm& form = window.open();
    QTest::mouseClick(form.checkRedoSearch, Qt::LeftButton, {}, QPoint(8, 12));
    searchFor(window, "рядко");
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("друго"));
    window.chooseTranslation(1);
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("рядко"));
    QCOMPARE(window.rows(), list("Дръ 1:10, Дръ 1:20, Дръ 2:10, Дръ 2:20"));
}

void HitsTest::withoutASearchNothingIsRepeated()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.install("б", hitsModule("Б", "Дрънкалка"));
    const BibleForm& form = window.open();
    QTest::mouseClick(form.checkRedoSearch, Qt::LeftButton, {}, QPoint(8, 12));
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("рядко"));
    window.chooseTranslation(1);
    QVERIFY(window.rows().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
}

void HitsTest::repeatedSearchThatFindsNothingSaysSo()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.install("б", makeModule("Б", {{18, "Дрънкалка", {{"няма"}}}}));
    const BibleForm& form = window.open();
    QTest::mouseClick(form.checkRedoSearch, Qt::LeftButton, {}, QPoint(8, 12));
    searchFor(window, "рядко");
    window.chooseTranslation(1);
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 2); // opening when others are open selects twice
    for (const SeenBox& box : boxes)
        QCOMPARE(box.text, QStringLiteral("Текста не е намерен в текущия превод"));
    QVERIFY(window.rows().isEmpty());
    QCOMPARE(window.red(), QStringLiteral("[1] няма"));
    window.clickTab(0);
    window.clickTab(1);
    QCOMPARE(window.takeBoxes().size(), 1);
}

void HitsTest::closingTheTranslationKeepsTheRows()
{
    FormFixture window;
    window.install("а", hitsModule("А", "Псалтир"));
    window.open();
    searchFor(window, "рядко");
    window.chooseTranslation(0);
    QCOMPARE(window.rows(), list("Пса 1:10, Пса 1:20, Пса 2:10, Пса 2:20"));
    window.clickHit(3);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 1 1"));
    QVERIFY(window.takeBoxes().isEmpty());
}

void HitsTest::thirtyOneThousandHitsAreListed()
{
    FormFixture window;
    test_support::Book book{18, "Псалтир", std::vector(310, std::vector<std::string>(100, "дума"))};
    window.install("а", makeModule("А", {book}));
    const BibleForm& form = window.open();
    searchFor(window, "дума");
    const QAbstractItemModel* rows = form.listSearchResults->model();
    QCOMPARE(rows->rowCount(), 31000);
    QCOMPARE(rows->index(30999, 0).data().toString(), QStringLiteral("Пса 310:100"));
    QCOMPARE(dynamic_cast<const HitListModel*>(rows)->longestRows(), list("Пса 100:100"));
    form.listSearchResults->setFocus(Qt::TabFocusReason);
    FormFixture::press(Qt::Key_End);
    QCOMPARE(window.place(), QStringLiteral("Псалтир 310 100"));
    QCOMPARE(form.listSearchResults->verticalScrollBar()->value(),
             form.listSearchResults->verticalScrollBar()->maximum());
}

void HitsTest::sixtyThousandWordsAreOffered()
{
    FormFixture window;
    test_support::Book book{18, "Псалтир", {{}}};
    for (int verse = 0; verse < 3000; ++verse) {
        std::string text;
        for (int word = 0; word < 20; ++word)
            text += "дума" + std::to_string(100000 + verse * 20 + word) + " ";
        book.chapters[0].push_back(text);
    }
    window.install("а", makeModule("А", {book}));
    window.install("б", hitsModule("Б", "Дрънкалка"));
    const BibleForm& form = window.open();
    QCOMPARE(form.comboSearchText->count(), 60000);
    QCOMPARE(form.comboSearchText->itemText(59999), QStringLiteral("дума159999"));
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("ДУМА15999"));
    QCOMPARE(form.comboSearchText->lineEdit()->selectedText(), QStringLiteral("0"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.rows(), list("Пса 1:3000"));
    window.chooseTranslation(1);
    window.clickTab(0);
    QCOMPARE(form.comboSearchText->count(), 60000);
}

QTEST_MAIN(HitsTest)
#include "hits_test.moc"
