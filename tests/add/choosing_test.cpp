#include "add_fixture.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

using namespace add_test;

namespace {

/// A text with something of each kind that the summary tells of.
constexpr const char* changedText =
    "\\id GEN\n\\c 1\n\\p\n\\v 1 Бог\\f + \\ft бележка\\f* рече\u2192\n\\v 2 Да\n"
    "\\id XXA\n\\c 1\n\\p\n\\v 1 Чуждо\n";

} // namespace

/// A text is chosen and looked at.
class ChoosingTest : public QObject
{
    Q_OBJECT

private slots:
    void beginsWithNothingToAdd();
    void droppedTextIsUnderstood();
    void whatIsLeftOutOrReplacedIsTold();
    void chosenFileIsRead();
    void droppedFolderIsRead();
    void textDroppedOnAnyPartIsRead();
    void textThatIsNoneIsRefused();
    void twoFilesAreRefused();
    void markupIsShownAsItIs();
};

void ChoosingTest::beginsWithNothingToAdd()
{
    AddFixture fixture;
    fixture.open();
    QVERIFY(!fixture.isSeen("add"));
    QVERIFY(!fixture.isSeen("title"));
    QVERIFY(!fixture.isSeen("openKedrin"));
    QVERIFY(!fixture.isSeen("detailsReport"));
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("chooseFile"));
}

void ChoosingTest::droppedTextIsUnderstood()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(
        fixture.file("Моят превод.vpl", "Gen\t1\t1\tЕдно\nGen\t1\t2\tДве\nExod\t1\t1\tТри\n"));
    QCOMPARE(fixture.textOf("format"), QStringLiteral("lines of verses"));
    QCOMPARE(fixture.textOf("contents"), QStringLiteral("2 books, 2 chapters, 3 verses"));
    QCOMPARE(fixture.textOf("samples"), QStringLiteral("Gen 1:1  Едно\nGen 1:2  Две\nExod 1:1  Три"));
    QCOMPARE(fixture.textOf("changes"), QStringLiteral("Nothing is left out or replaced."));
    QCOMPARE(fixture.part<QLineEdit>("title")->text(), QStringLiteral("Моят превод"));
    QCOMPARE(fixture.part<QLineEdit>("name")->text(), QStringLiteral("моят-превод"));
    QVERIFY(fixture.part("add")->isEnabled());
    QVERIFY(fixture.folders().isEmpty());
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("title"));
}

void ChoosingTest::whatIsLeftOutOrReplacedIsTold()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("a.usfm", changedText));
    QCOMPARE(fixture.textOf("format"), QStringLiteral("USFM"));
    QCOMPARE(fixture.textOf("changes"),
             QStringLiteral("1 book that Kedrin does not know is left out: XXA\nLeft out: 1 note\n"
                            "1 character that Kedrin cannot store is replaced or removed"));
    QVERIFY(!fixture.isSeen("detailsReport"));
    fixture.click("details");
    QVERIFY(fixture.isSeen("detailsReport"));
    const QString report = fixture.part<QPlainTextEdit>("detailsReport")->toPlainText();
    QVERIFY2(
        report.startsWith(QStringLiteral("left out      XXA: 1 verse, not in the global numbering\n"
                                         "title         a\ncontains      1 book, 1 chapter, 2 verses\n")),
        qPrintable(report));
    QVERIFY2(report.contains(QStringLiteral("left out      1 note, first at Gen 1:1\n")), qPrintable(report));
    QVERIFY(fixture.part<QPlainTextEdit>("detailsReport")->isReadOnly());
}

void ChoosingTest::chosenFileIsRead()
{
    AddFixture fixture;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    fixture.open();
    fixture.click("chooseFile");
    auto* dialog = fixture.window().findChild<QFileDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    dialog->selectFile(QString::fromStdString(fixture.file("a.vpl")));
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_VERIFY(fixture.isSeen("add"));
    QCOMPARE(fixture.part<QLineEdit>("title")->text(), QStringLiteral("a"));
}

void ChoosingTest::droppedFolderIsRead()
{
    AddFixture fixture;
    fixture.open();
    fixture.file("Folder/01.usfm", "\\id GEN\n\\c 1\n\\p\n\\v 1 Бог\n");
    fixture.dropAndWait(fixture.home("Folder"));
    QCOMPARE(fixture.textOf("format"), QStringLiteral("USFM"));
    QCOMPARE(fixture.part<QLineEdit>("name")->text(), QStringLiteral("folder"));
}

void ChoosingTest::textDroppedOnAnyPartIsRead()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("changed.usfm", changedText));
    fixture.click("details");
    const auto* report = fixture.part<QPlainTextEdit>("detailsReport");
    for (QWidget* part : {report->viewport(), fixture.part("title"), fixture.part("details")}) {
        const std::string name = "beta-" + part->objectName().toStdString();
        fixture.dropOn(*part, {QString::fromStdString(fixture.file(name + ".vpl"))});
        QTRY_VERIFY_WITH_TIMEOUT(!fixture.isWorking(), longestWait);
        QCOMPARE(fixture.part<QLineEdit>("title")->text(), QString::fromStdString(name));
        fixture.dropAndWait(fixture.file("changed.usfm", changedText));
    }
}

void ChoosingTest::textThatIsNoneIsRefused()
{
    AddFixture fixture;
    fixture.open();
    const std::string path = fixture.file("a.xml", "<html></html>");
    fixture.dropAndWait(path);
    QCOMPARE(fixture.textOf("message"),
             QString::fromStdString("This text cannot be added: " + path +
                                    ": is XML of an unknown format (its root element is \"html\")"));
    QVERIFY(!fixture.isSeen("add"));
    fixture.dropAndWait(fixture.file("a.vpl"));
    QVERIFY(!fixture.isSeen("message"));
    QVERIFY(fixture.isSeen("add"));
}

void ChoosingTest::twoFilesAreRefused()
{
    AddFixture fixture;
    fixture.open();
    const QString path = QString::fromStdString(fixture.file("a.vpl"));
    fixture.drop({path, path});
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Drop one file or one folder of this computer."));
    QVERIFY(!fixture.isWorking());
}

void ChoosingTest::markupIsShownAsItIs()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("<b>a</b>.vpl", "Gen\t1\t1\t<h1>Бог</h1> &amp; <img src='x'>\n"));
    QCOMPARE(fixture.textOf("samples"), QStringLiteral("Gen 1:1  <h1>Бог</h1> &amp; <img src='x'>"));
    for (const QLabel* label : fixture.window().findChildren<QLabel*>())
        if (label->isVisible() && !label->text().contains(u':') && !label->text().isEmpty())
            QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(fixture.part<QLabel>("samples")->textFormat(), Qt::PlainText);
    QCOMPARE(fixture.part<QLabel>("message")->textFormat(), Qt::PlainText);
}

QTEST_MAIN(ChoosingTest)
#include "choosing_test.moc"
