#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "fit_push_button.h"
#include "form_fixture.h"
#include "list_box.h"

#include <QLineEdit>
#include <QTest>

using namespace window_test;
using test_support::makeModule;
using test_support::ModuleFiles;

namespace {

/// Битие 1 has "Бог", "бог" and "Богове"; Изход 1 "земя" and "земята".
ModuleFiles wordsModule(const std::string& title = "Думи")
{
    return makeModule(title, {{0, "Битие", {{"Бог рече", "и бог видя", "Богове", "светлина"}}},
                              {1, "Изход", {{"земя"}, {"на земята Бог"}}}});
}

QStringList list(const char* texts)
{
    const QString all = QString::fromUtf8(texts);
    return all.isEmpty() ? QStringList() : all.split(QStringLiteral(", "));
}

void openOnWords(FormFixture& window)
{
    window.install("а", wordsModule());
    window.open();
}

/// Types a text and presses Return.
void searchFor(const FormFixture& window, const char* text)
{
    FormFixture::typeInto(window.form().comboSearchText, QString::fromUtf8(text));
    FormFixture::press(Qt::Key_Delete); // the completed part
    FormFixture::press(Qt::Key_Return);
}

void expectInformation(FormFixture& window, const char* caption, const char* text)
{
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Information);
    QCOMPARE(boxes.first().caption, QString::fromUtf8(caption));
    QCOMPARE(boxes.first().text, QString::fromUtf8(text));
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
}

} // namespace

/// Searching, and the options of the panel.
class SearchTest : public QObject
{
    Q_OBJECT

private slots:
    void buttonSearchesWhenPressed();
    void buttonIsUpAgainAfterABox();
    void enterSearchesLikeTheButton_data();
    void enterSearchesLikeTheButton();
    void choosingAWordSearches();
    void typingCompletesWords();
    void typingAloneDoesNotSearch();
    void leavingTheBoxDoesNotSearch();
    void emptyBoxRemindsAndKeepsTheHits();
    void wordThatIsNotThere();
    void optionsMeanWhatTheySay_data();
    void optionsMeanWhatTheySay();
    void caseBoxFollowsThePartBox();
    void repeatBoxAloneDoesNotSearch();
    void damagedConcordanceShowsABoxAndGoesOn();
    void newSearchReplacesTheHits();
};

void SearchTest::buttonSearchesWhenPressed()
{
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("Бог"));
    FormFixture::press(Qt::Key_Delete);
    QTest::mousePress(form.btnSearch, Qt::LeftButton);
    QCOMPARE(window.rows(), list("Бит 1:1, Бит 1:2, Изх 2:1"));
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("земя"));
    QTest::mouseRelease(form.btnSearch, Qt::LeftButton);
    QCOMPARE(window.rows(), list("Бит 1:1, Бит 1:2, Изх 2:1")); // not on release
}

void SearchTest::buttonIsUpAgainAfterABox()
{
    FormFixture window;
    openOnWords(window);
    QTest::mousePress(window.form().btnSearch, Qt::LeftButton);
    QCOMPARE(window.takeBoxes().size(), 1);
    QVERIFY(!window.form().btnSearch->isDown());
}

void SearchTest::enterSearchesLikeTheButton_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void SearchTest::enterSearchesLikeTheButton()
{
    QFETCH(Qt::Key, key);
    FormFixture window;
    openOnWords(window);
    FormFixture::typeInto(window.form().comboSearchText, QStringLiteral("рече"));
    FormFixture::press(key);
    QCOMPARE(window.rows(), list("Бит 1:1"));
    FormFixture::typeInto(window.form().comboSearchText, QString());
    FormFixture::press(key);
    expectInformation(window, "Напомняне", "Моля, въведете текст за търсене");
    QVERIFY(window.takeBoxes().isEmpty());
}

void SearchTest::choosingAWordSearches()
{
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    const int row = form.comboSearchText->findText(QStringLiteral("светлина"));
    QVERIFY(row > 0);
    window.pick(form.comboSearchText, row);
    QCOMPARE(window.rows(), list("Бит 1:4"));
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("светлина"));
}

void SearchTest::typingCompletesWords()
{
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("СВЕТ"));
    QCOMPARE(form.comboSearchText->currentText().toLower(), QStringLiteral("светлина"));
    QCOMPARE(form.comboSearchText->lineEdit()->selectedText(), QStringLiteral("лина"));
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.rows(), list("Бит 1:4"));
}

void SearchTest::typingAloneDoesNotSearch()
{
    FormFixture window;
    openOnWords(window);
    FormFixture::typeInto(window.form().comboSearchText, QStringLiteral("Бог"));
    QVERIFY(window.rows().isEmpty());
    QVERIFY(window.takeBoxes().isEmpty());
}

void SearchTest::leavingTheBoxDoesNotSearch()
{
    FormFixture window;
    openOnWords(window);
    FormFixture::typeInto(window.form().comboSearchText, QStringLiteral("светлина"));
    window.form().textBrowser->setFocus();
    QVERIFY(window.rows().isEmpty());
    QCOMPARE(window.form().comboSearchText->currentText(), QStringLiteral("светлина"));
}

void SearchTest::emptyBoxRemindsAndKeepsTheHits()
{
    FormFixture window;
    openOnWords(window);
    searchFor(window, "рече");
    FormFixture::typeInto(window.form().comboSearchText, QString());
    QTest::mouseClick(window.form().btnSearch, Qt::LeftButton);
    expectInformation(window, "Напомняне", "Моля, въведете текст за търсене");
    QCOMPARE(window.rows(), list("Бит 1:1"));
    window.clickHit(0);
    QCOMPARE(window.red(), QStringLiteral("[1] Бог рече"));
}

void SearchTest::wordThatIsNotThere()
{
    FormFixture window;
    openOnWords(window);
    searchFor(window, "рече");
    searchFor(window, "няма го");
    expectInformation(window, "Резултат от търсенето", "Текста не е намерен в текущия превод");
    QVERIFY(window.rows().isEmpty());
    searchFor(window, "ог"); // only a part of a word
    expectInformation(window, "Резултат от търсенето", "Текста не е намерен в текущия превод");
}

void SearchTest::optionsMeanWhatTheySay_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("part");
    QTest::addColumn<bool>("sameCase");
    QTest::addColumn<QStringList>("hits");
    const auto row = [](const char* name, const char* text, bool part, bool sameCase, const char* hits) {
        QTest::newRow(name) << QString::fromUtf8(text) << part << sameCase << list(hits);
    };
    row("whole word", "Бог", false, false, "Бит 1:1, Бит 1:2, Изх 2:1");
    row("whole word in other letters", "бОГ", false, false, "Бит 1:1, Бит 1:2, Изх 2:1");
    row("whole word, case box ignored", "бОГ", false, true, "Бит 1:1, Бит 1:2, Изх 2:1");
    row("part", "бог", true, false, "Бит 1:1, Бит 1:2, Бит 1:3, Изх 2:1");
    row("part with a blank, any letters", " бог", true, false, "Бит 1:2, Изх 2:1");
    row("part in the same letters", " бог", true, true, "Бит 1:2");
    row("part in the same letters, capital", " Бог", true, true, "Изх 2:1");
    row("part with a blank", "на зем", true, false, "Изх 2:1");
}

void SearchTest::optionsMeanWhatTheySay()
{
    QFETCH(QString, text);
    QFETCH(bool, part);
    QFETCH(bool, sameCase);
    QFETCH(QStringList, hits);
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    if (part || sameCase)
        QTest::mouseClick(form.checkPartialWord, Qt::LeftButton, {}, QPoint(8, 12));
    if (sameCase)
        QTest::mouseClick(form.checkCaseSensitive, Qt::LeftButton, {}, QPoint(8, 12));
    if (sameCase && !part)
        QTest::mouseClick(form.checkPartialWord, Qt::LeftButton, {}, QPoint(8, 12));
    QCOMPARE(form.checkPartialWord->isChecked(), part);
    QCOMPARE(form.checkCaseSensitive->isChecked(), sameCase);
    searchFor(window, text.toUtf8().constData());
    QCOMPARE(window.rows(), hits);
    QVERIFY(window.takeBoxes().isEmpty());
}

void SearchTest::caseBoxFollowsThePartBox()
{
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    QVERIFY(!form.checkCaseSensitive->isEnabled());
    form.checkPartialWord->setFocus(Qt::TabFocusReason);
    FormFixture::press(Qt::Key_Space);
    QVERIFY(form.checkCaseSensitive->isEnabled());
    FormFixture::press(Qt::Key_Space);
    QVERIFY(!form.checkCaseSensitive->isEnabled());
}

void SearchTest::repeatBoxAloneDoesNotSearch()
{
    FormFixture window;
    openOnWords(window);
    FormFixture::typeInto(window.form().comboSearchText, QStringLiteral("Бог"));
    QTest::mouseClick(window.form().checkRedoSearch, Qt::LeftButton, {}, QPoint(8, 12));
    QVERIFY(window.form().checkRedoSearch->isChecked());
    QVERIFY(window.rows().isEmpty());
}

void SearchTest::damagedConcordanceShowsABoxAndGoesOn()
{
    FormFixture window;
    ModuleFiles files = wordsModule();
    for (char& byte : files.bytes["Conc.bin"])
        byte = '\x70'; // counts and verse numbers far beyond the module
    window.install("а", files);
    const BibleForm& form = window.open();
    searchFor(window, "светлина");
    const QList<SeenBox> boxes = window.takeBoxes();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.first().caption, QStringLiteral("Search Error:"));
    QVERIFY(!boxes.first().text.isEmpty());
    QCOMPARE(boxes.first().buttons, QStringList{QStringLiteral("OK")});
    QVERIFY(window.rows().isEmpty());

    QTest::mouseClick(form.checkPartialWord, Qt::LeftButton, {}, QPoint(8, 12));
    searchFor(window, "светлина");
    QCOMPARE(window.rows(), list("Бит 1:4"));
    window.clickHit(0);
    QCOMPARE(window.red(), QStringLiteral("[4] светлина"));
}

void SearchTest::newSearchReplacesTheHits()
{
    FormFixture window;
    openOnWords(window);
    searchFor(window, "Бог");
    window.clickHit(2);
    searchFor(window, "рече");
    QCOMPARE(window.rows(), list("Бит 1:1"));
    QCOMPARE(window.form().listSearchResults->currentItem(), -1);
    QCOMPARE(window.place(), QStringLiteral("Изход 2 1")); // listing hits does not change the page
}

QTEST_MAIN(SearchTest)
#include "search_test.moc"
