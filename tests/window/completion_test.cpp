#include "form_fixture.h"

#include <QLineEdit>
#include <QTest>

using namespace window_test;
using test_support::makeModule;

namespace {

/// The list of words has each word once: "LORD", "Дух".
void openOnWords(FormFixture& window)
{
    window.install("а", makeModule("А", {{0, "Битие", {{"LORD", "the Lord", "Дух", "с дух", "духове"}}}}));
    const BibleForm& form = window.open();
    QVERIFY(form.comboSearchText->findText(QStringLiteral("LORD")) >= 0);
    QVERIFY(form.comboSearchText->findText(QStringLiteral("Дух")) >= 0);
}

void check(QCheckBox* box) { QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, 12)); }

} // namespace

/// Completion in the search box, and the typed letters.
class CompletionTest : public QObject
{
    Q_OBJECT

private slots:
    void typedLettersStayWhileCaseCounts_data();
    void typedLettersStayWhileCaseCounts();
    void onlyTheRestIsCompletedWhileCaseCounts();
    void typedLettersBecomeTheWordsOtherwise_data();
    void typedLettersBecomeTheWordsOtherwise();
};

void CompletionTest::typedLettersStayWhileCaseCounts_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("hits");
    QTest::newRow("Lord") << QStringLiteral("Lord") << QStringLiteral("Бит 1:2");
    QTest::newRow("LORD") << QStringLiteral("LORD") << QStringLiteral("Бит 1:1");
    QTest::newRow("дух") << QStringLiteral("дух") << QStringLiteral("Бит 1:4, Бит 1:5");
}

void CompletionTest::typedLettersStayWhileCaseCounts()
{
    QFETCH(QString, typed);
    QFETCH(QString, hits);
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    check(form.checkPartialWord);
    check(form.checkCaseSensitive);
    FormFixture::typeInto(form.comboSearchText, typed);
    QCOMPARE(form.comboSearchText->currentText(), typed);
    FormFixture::press(Qt::Key_Return);
    QCOMPARE(window.rows(), hits.split(QStringLiteral(", ")));
}

void CompletionTest::onlyTheRestIsCompletedWhileCaseCounts()
{
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    check(form.checkPartialWord);
    check(form.checkCaseSensitive);
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("lO"));
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("lORD"));
    QCOMPARE(form.comboSearchText->lineEdit()->selectedText(), QStringLiteral("RD"));
}

void CompletionTest::typedLettersBecomeTheWordsOtherwise_data()
{
    QTest::addColumn<bool>("part");
    QTest::addColumn<bool>("sameCase");
    QTest::newRow("neither box") << false << false;
    QTest::newRow("part of a word") << true << false;
    QTest::newRow("case box checked, but off") << false << true;
}

void CompletionTest::typedLettersBecomeTheWordsOtherwise()
{
    QFETCH(bool, part);
    QFETCH(bool, sameCase);
    FormFixture window;
    openOnWords(window);
    const BibleForm& form = window.form();
    form.checkPartialWord->setChecked(part);
    form.checkCaseSensitive->setChecked(sameCase);
    FormFixture::typeInto(form.comboSearchText, QStringLiteral("lO"));
    QCOMPARE(form.comboSearchText->currentText(), QStringLiteral("LORD"));
}

QTEST_MAIN(CompletionTest)
#include "completion_test.moc"
