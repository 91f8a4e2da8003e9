#include "add_fixture.h"
#include "installed_modules.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <cstdlib>
#include <filesystem>

using namespace add_test;

namespace {

namespace fs = std::filesystem;

/// A text with something of each kind that the summary tells of.
constexpr const char* changedText =
    "\\id GEN\n\\c 1\n\\p\n\\v 1 Бог\\f + \\ft бележка\\f* рече\u2192\n\\v 2 Да\n"
    "\\id XXA\n\\c 1\n\\p\n\\v 1 Чуждо\n";

} // namespace

/// A text is chosen, looked at and added.
class AddingTest : public QObject
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
    void addsByKeyboard();
    void addsFirst();
    void titleAndNameAreReachedByKeyboard();
    void editedTitleIsStored();
    void badNameIsToldAtTheField_data();
    void badNameIsToldAtTheField();
    void takenNameIsReplacedOnlyIfAsked();
    void opensKedrin();
};

void AddingTest::beginsWithNothingToAdd()
{
    AddFixture fixture;
    fixture.open();
    QVERIFY(!fixture.isSeen("add"));
    QVERIFY(!fixture.isSeen("title"));
    QVERIFY(!fixture.isSeen("openKedrin"));
    QVERIFY(!fixture.isSeen("detailsReport"));
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("chooseFile"));
}

void AddingTest::droppedTextIsUnderstood()
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

void AddingTest::whatIsLeftOutOrReplacedIsTold()
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

void AddingTest::chosenFileIsRead()
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

void AddingTest::droppedFolderIsRead()
{
    AddFixture fixture;
    fixture.open();
    fixture.file("Folder/01.usfm", "\\id GEN\n\\c 1\n\\p\n\\v 1 Бог\n");
    fixture.dropAndWait(fixture.home("Folder"));
    QCOMPARE(fixture.textOf("format"), QStringLiteral("USFM"));
    QCOMPARE(fixture.part<QLineEdit>("name")->text(), QStringLiteral("folder"));
}

void AddingTest::textDroppedOnAnyPartIsRead()
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

void AddingTest::textThatIsNoneIsRefused()
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

void AddingTest::twoFilesAreRefused()
{
    AddFixture fixture;
    fixture.open();
    const QString path = QString::fromStdString(fixture.file("a.vpl"));
    fixture.drop({path, path});
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Drop one file or one folder of this computer."));
    QVERIFY(!fixture.isWorking());
}

void AddingTest::markupIsShownAsItIs()
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

void AddingTest::addsByKeyboard()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl"));
    QTest::keyClick(fixture.part("title"), Qt::Key_Return);
    QTRY_VERIFY(fixture.isSeen("openKedrin"));
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("alpha")));
    QCOMPARE(fixture.textOf("message"),
             QStringLiteral("\"alpha\" has been added. The next time Kedrin is started, its menu \"Преводи\" "
                            "lists this translation."));
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("openKedrin"));
    QVERIFY(!fixture.isSeen("add"));
    fixture.click("details");
    QVERIFY(fixture.part<QPlainTextEdit>("detailsReport")
                ->toPlainText()
                .startsWith(QStringLiteral("module        ")));
}

void AddingTest::addsFirst()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl"));
    QTest::keyClick(&fixture.window(), Qt::Key_K, Qt::AltModifier);
    QTRY_VERIFY(fixture.part<QCheckBox>("first")->isChecked());
    fixture.addAndWait();
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("!alpha")));
    QVERIFY(fixture.textOf("message").endsWith(QStringLiteral("it opens this translation.")));
}

void AddingTest::titleAndNameAreReachedByKeyboard()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl"));
    QTest::keyClick(&fixture.window(), Qt::Key_N, Qt::AltModifier);
    QCOMPARE(fixture.window().focusWidget(), fixture.part("name"));
    QTest::keyClick(&fixture.window(), Qt::Key_E, Qt::AltModifier);
    QCOMPARE(fixture.window().focusWidget(), fixture.part("title"));
}

void AddingTest::editedTitleIsStored()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl"));
    fixture.typeInto("title", QString());
    QCOMPARE(fixture.textOf("titleNote"),
             QStringLiteral("Enter a title; the menu of Kedrin lists the translation by it."));
    QVERIFY(!fixture.part("add")->isEnabled());
    fixture.typeInto("title", QString(255, u'я'));
    QVERIFY(!fixture.isSeen("titleNote"));
    fixture.typeInto("title", QString(256, u'я'));
    QCOMPARE(fixture.textOf("titleNote"), QStringLiteral("The title is too long."));
    fixture.typeInto("title", QStringLiteral("Нов <i>превод</i> & друго"));
    QVERIFY(!fixture.isSeen("titleNote"));
    fixture.addAndWait();
    QVERIFY2(
        fixture.textOf("message").startsWith(QStringLiteral("\"Нов <i>превод</i> & друго\" has been added.")),
        qPrintable(fixture.textOf("message")));
}

void AddingTest::badNameIsToldAtTheField_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"", ".a", "!a", "a/b", "BibleStructure.txt"})
        QTest::addRow("'%s'", name) << QString::fromUtf8(name);
    QTest::addRow("long") << QString(101, u'я');
}

void AddingTest::badNameIsToldAtTheField()
{
    QFETCH(QString, name);
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl"));
    fixture.typeInto("name", name);
    QCOMPARE(fixture.textOf("nameNote"),
             name.isEmpty() ? QStringLiteral("Enter a name.")
                            : QStringLiteral("A name cannot begin with \".\" or \"!\", contain \"/\" or be "
                                             "longer than 200 bytes."));
    QVERIFY(fixture.isSeen("nameNote"));
    QCOMPARE(fixture.part("name")->accessibleDescription(), fixture.textOf("nameNote"));
    QVERIFY(!fixture.part("add")->isEnabled());
    QTest::keyClick(fixture.part("name"), Qt::Key_Return);
    QVERIFY(!fixture.isWorking());
    fixture.typeInto("name", QStringLiteral("добро"));
    QVERIFY(fixture.part("add")->isEnabled());
}

void AddingTest::takenNameIsReplacedOnlyIfAsked()
{
    AddFixture fixture;
    install(fixture, "alpha");
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl", "Gen\t1\t1\tНово\nGen\t1\t2\tДруго\n"));
    QVERIFY(fixture.isSeen("replace"));
    QVERIFY(fixture.textOf("nameNote").startsWith(QStringLiteral("A translation with this name")));
    QVERIFY(!fixture.part("add")->isEnabled());
    fixture.typeInto("name", QStringLiteral("beta"));
    QVERIFY(!fixture.isSeen("replace"));
    QVERIFY(fixture.part("add")->isEnabled());
    fixture.typeInto("name", QStringLiteral("alpha"));
    QVERIFY(!fixture.part("add")->isEnabled());
    const auto before = fs::last_write_time(fixture.home("data/kedrin/modules/bibles/alpha/CompactText.bin"));
    QTest::keyClick(&fixture.window(), Qt::Key_R, Qt::AltModifier);
    QTRY_VERIFY(fixture.part("add")->isEnabled());
    fixture.addAndWait();
    QVERIFY2(fixture.isSeen("openKedrin"), qPrintable(fixture.textOf("message")));
    QVERIFY(fs::last_write_time(fixture.home("data/kedrin/modules/bibles/alpha/CompactText.bin")) != before);
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("alpha")));
}

void AddingTest::opensKedrin()
{
    AddFixture fixture;
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", fixture.home("bin").c_str(), 1);
    fixture.open();
    fixture.dropAndWait(fixture.file("alpha.vpl"));
    fixture.addAndWait();
    fixture.click("openKedrin");
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Kedrin was not found; start it as you usually do."));
    const std::string program = fixture.file("bin/kedrin", "#!/bin/sh\n: >\"$XDG_DATA_HOME/started\"\n");
    fs::permissions(program, fs::perms::owner_all);
    fixture.click("openKedrin");
    QTRY_VERIFY(fs::exists(fixture.home("data/started")));
    ::setenv("PATH", path.c_str(), 1);
}

QTEST_MAIN(AddingTest)
#include "adding_test.moc"
