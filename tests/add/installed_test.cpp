#include "add_fixture.h"
#include "module_state.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <filesystem>

using namespace add_test;

namespace {

namespace fs = std::filesystem;

QString bibles(const AddFixture& fixture, const std::string& name)
{
    return QString::fromStdString(fixture.home("data/kedrin/modules/bibles/" + name));
}

/// The rows of the list: title, state, owner and name.
QStringList rows(const AddFixture& fixture)
{
    const auto* list = fixture.part<QTreeWidget>("modules");
    QStringList all;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < list->columnCount(); ++column)
            cells.append(list->topLevelItem(row)->text(column));
        all.append(cells.join(QStringLiteral(" | ")));
    }
    return all;
}

bool isChecked(const AddFixture& fixture)
{
    return rows(fixture).filter(QStringLiteral("being checked")).isEmpty();
}

/// Opens the window on the page of installed translations and waits until they are checked.
void openList(AddFixture& fixture)
{
    fixture.open();
    QTest::keyClick(&fixture.window(), Qt::Key_I, Qt::AltModifier);
    QTRY_VERIFY(isChecked(fixture));
}

void select(const AddFixture& fixture, int row)
{
    auto* list = fixture.part<QTreeWidget>("modules");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->topLevelItem(row)).center());
}

} // namespace

/// The pages of installed translations and of the SWORD library's Bibles.
class InstalledTest : public QObject
{
    Q_OBJECT

private slots:
    void emptyListSaysSo();
    void listsModulesWithTheirState();
    void moduleThatHasGoneCannotBeRead();
    void defectsAreInTheReport();
    void modulesOfAllUsersAreNotChanged();
    void removesAfterAsking();
    void keepsWhatIsNotToBeRemoved();
    void opensAnotherFirst();
    void addedModuleIsListed();
    void failureIsTold();
};

void InstalledTest::emptyListSaysSo()
{
    AddFixture fixture;
    openList(fixture);
    QCOMPARE(fixture.textOf("installedMessage"), QStringLiteral("No translation is installed."));
    QVERIFY(!fixture.part("remove")->isEnabled());
    QVERIFY(!fixture.part("makeFirst")->isEnabled());
}

void InstalledTest::listsModulesWithTheirState()
{
    AddFixture fixture;
    for (const char* name : {"a", "b", "c"})
        install(fixture, name);
    fs::resize_file(bibles(fixture, "b/CompactText.bin").toStdString(), 3);
    fs::remove(bibles(fixture, "c/Conc.bin").toStdString());
    fs::remove(bibles(fixture, "c/ConcP.bin").toStdString());
    openList(fixture);
    const QStringList list = rows(fixture);
    QCOMPARE(list.size(), 3);
    QCOMPARE(list.at(0), QStringLiteral("a | sound | you | a"));
    QVERIFY2(list.at(1).contains(QStringLiteral("b | 1 defect | you | b")), qPrintable(list.at(1)));
    QVERIFY2(list.at(2).contains(QStringLiteral("c | 2 defects | you | c")), qPrintable(list.at(2)));
}

void InstalledTest::moduleThatHasGoneCannotBeRead()
{
    const Kedrin::Add::ModuleState state = Kedrin::Add::stateOf({"gone", "/nowhere/gone", true});
    QCOMPARE(state.summary, QStringLiteral("cannot be read"));
    QCOMPARE(state.report, QStringLiteral("/nowhere/gone: is not a folder"));
}

void InstalledTest::defectsAreInTheReport()
{
    AddFixture fixture;
    install(fixture, "a");
    fs::resize_file(bibles(fixture, "a/CompactText.bin").toStdString(), 3);
    openList(fixture);
    select(fixture, 0);
    fixture.click("installedDetails");
    QVERIFY(fixture.isSeen("installedDetailsReport"));
}

void InstalledTest::modulesOfAllUsersAreNotChanged()
{
    AddFixture fixture;
    install(fixture, "a");
    fs::create_directory(fixture.home("system"));
    fs::rename(bibles(fixture, "a").toStdString(), fixture.home("system/a"));
    fs::create_directory_symlink(fixture.home("system/a"), bibles(fixture, "a").toStdString());
    openList(fixture);
    QCOMPARE(rows(fixture), QStringList(QStringLiteral("a | sound | all users | a")));
    select(fixture, 0);
    QVERIFY(!fixture.part("remove")->isEnabled());
    QVERIFY(!fixture.part("makeFirst")->isEnabled());
}

void InstalledTest::removesAfterAsking()
{
    AddFixture fixture;
    install(fixture, "a");
    install(fixture, "b");
    openList(fixture);
    select(fixture, 1);
    QTest::keyClick(&fixture.window(), Qt::Key_R, Qt::AltModifier);
    QTRY_VERIFY(fixture.isSeen("question"));
    QCOMPARE(fixture.textOf("question"),
             QStringLiteral("Remove \"b\" from this computer? Its files are deleted."));
    QCOMPARE(fixture.folders().size(), 2);
    fixture.click("removeYes");
    QVERIFY(!fixture.isSeen("question"));
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("a")));
    QCOMPARE(fixture.textOf("installedMessage"), QStringLiteral("\"b\" has been removed."));
    QCOMPARE(rows(fixture).size(), 1);
}

void InstalledTest::keepsWhatIsNotToBeRemoved()
{
    AddFixture fixture;
    install(fixture, "a");
    openList(fixture);
    select(fixture, 0);
    fixture.click("remove");
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("removeNo"));
    QTest::keyClick(&fixture.window(), Qt::Key_Escape);
    QTRY_VERIFY(!fixture.isSeen("question"));
    fixture.click("remove");
    fixture.click("removeNo");
    QVERIFY(!fixture.isSeen("question"));
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("a")));
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("modules"));
}

void InstalledTest::opensAnotherFirst()
{
    AddFixture fixture;
    install(fixture, "a");
    install(fixture, "b");
    openList(fixture);
    select(fixture, 1);
    fixture.click("makeFirst");
    QCOMPARE(fixture.folders(), QStringList({QStringLiteral("!b"), QStringLiteral("a")}));
    QVERIFY(rows(fixture).first().endsWith(QStringLiteral("| b")));
    QCOMPARE(fixture.textOf("installedMessage"),
             QStringLiteral("The next time Kedrin is started, it opens \"b\"."));
}

void InstalledTest::addedModuleIsListed()
{
    AddFixture fixture;
    openList(fixture);
    fixture.dropAndWait(fixture.file("new.vpl"));
    QCOMPARE(fixture.window().currentIndex(), 0);
    fixture.addAndWait();
    QTRY_COMPARE(rows(fixture), QStringList(QStringLiteral("new | sound | you | new")));
}

void InstalledTest::failureIsTold()
{
    AddFixture fixture;
    install(fixture, "a");
    openList(fixture);
    select(fixture, 0);
    fs::remove_all(bibles(fixture, "a").toStdString());
    fixture.click("makeFirst");
    QVERIFY2(fixture.textOf("installedMessage").contains(QStringLiteral("cannot be renamed")),
             qPrintable(fixture.textOf("installedMessage")));
}

QTEST_MAIN(InstalledTest)
#include "installed_test.moc"
