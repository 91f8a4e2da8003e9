#include "add_fixture.h"
#include "installed_modules.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <cstdlib>
#include <filesystem>

using namespace add_test;

namespace {

namespace fs = std::filesystem;

} // namespace

/// A text that was looked at is added.
class AddingTest : public QObject
{
    Q_OBJECT

private slots:
    void addsByKeyboard();
    void addsFirst();
    void titleAndNameAreReachedByKeyboard();
    void editedTitleIsStored();
    void badNameIsToldAtTheField_data();
    void badNameIsToldAtTheField();
    void takenNameIsReplacedOnlyIfAsked();
    void opensKedrin();
};

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
