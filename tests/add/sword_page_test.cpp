#include "missing_sword.h"
#include "sword_fixture.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <atomic>
#include <filesystem>

using namespace add_test;
using build_test::LoopbackServer;

namespace {

namespace fs = std::filesystem;

/// Counts how often the library is asked for.
class CountedSword final : public Kedrin::ModTool::ISword
{
public:
    std::unique_ptr<Kedrin::ModTool::ISwordTexts> installedTexts() const override
    {
        ++m_times;
        return m_sword.installedTexts();
    }
    std::unique_ptr<Kedrin::ModTool::ISwordRepositories> repositories() const override
    {
        ++m_times;
        return m_sword.repositories();
    }
    int times() const { return m_times; }

private:
    Kedrin::ModTool::CSword m_sword;
    mutable std::atomic<int> m_times = 0;
};

QStringList entries(const SwordFixture& fixture, const char* box)
{
    const auto* choice = fixture.part<QComboBox>(box);
    QStringList texts;
    for (int index = 0; index < choice->count(); ++index)
        texts.append(choice->itemText(index));
    return texts;
}

} // namespace

/// The Bibles of this computer and of repositories are listed.
class SwordPageTest : public QObject
{
    Q_OBJECT

private slots:
    void libraryIsAskedOnceThePageIsShown();
    void missingPartIsNamed();
    void noBibleForSword();
    void listsThisComputer();
    void offersKnownRepositories();
    void listsAFolder();
    void listsAChosenFolder();
    void listsAnAddressOnceItIsAllowed();
    void networkIsNotUsedWithoutConsent();
    void choosesTheUsersLanguage();
};

void SwordPageTest::libraryIsAskedOnceThePageIsShown()
{
    SwordFixture fixture;
    const CountedSword sword;
    fixture.openWith(sword);
    fixture.dropAndWait(fixture.file("a.vpl"));
    QCOMPARE(sword.times(), 0);
    QTest::keyClick(&fixture.window(), Qt::Key_W, Qt::AltModifier);
    QTRY_COMPARE(sword.times(), 2);
    fixture.window().setCurrentIndex(0);
    fixture.window().setCurrentIndex(1);
    QTest::qWait(50);
    QCOMPARE(sword.times(), 2);
}

void SwordPageTest::missingPartIsNamed()
{
    SwordFixture fixture;
    const Kedrin::Add::CMissingSword none;
    fixture.openWith(none);
    QTest::keyClick(&fixture.window(), Qt::Key_W, Qt::AltModifier);
    const QString said = QStringLiteral(
        "The part of the program that reads SWORD texts is not installed. It is in the package "
        "kedrin-module-sword: install that, then start this program again.");
    QTRY_COMPARE(fixture.textOf("swordNote"), said);
    for (const char* part : {"swordSource", "swordBibles", "addSword"})
        QVERIFY2(!fixture.isSeen(part), part);
    fixture.window().open("sword:KJV");
    QTRY_COMPARE(fixture.textOf("message"), QStringLiteral("This text cannot be added: ") + said);
}

void SwordPageTest::noBibleForSword()
{
    SwordFixture fixture;
    fixture.openPage();
    QCOMPARE(fixture.textOf("swordNote"),
             QStringLiteral("No Bible for SWORD programs is installed on this computer."));
    QVERIFY(!fixture.part("addSword")->isEnabled());
    QVERIFY(!fixture.isSeen("swordLanguage"));
    QVERIFY(!fixture.isSeen("swordAddress"));
}

void SwordPageTest::listsThisComputer()
{
    SwordFixture fixture;
    fixture.sword().add("Alpha", {{"Gen 1:1", "Бог"}}, "Description=Първи\n");
    fixture.sword().add("Beta", {{"Gen 1:1", "Бог"}}, "Description=Втори\n");
    fixture.openPage();
    QCOMPARE(fixture.rows(),
             QStringList({QStringLiteral("Първи |  |  | Alpha"), QStringLiteral("Втори |  |  | Beta")}));
    QVERIFY(fixture.part("addSword")->isEnabled());
    QVERIFY(!fixture.isSeen("swordLanguage"));
    QVERIFY(!fixture.isSeen("listing"));
}

void SwordPageTest::offersKnownRepositories()
{
    SwordFixture fixture;
    fixture.configure("FTPSource=<b>One</b>|ftp.example.org|/pub|||1\nDIRSource=Own|local|" +
                      fixture.repository() + "\n");
    fixture.openPage();
    QCOMPARE(entries(fixture, "swordSource"),
             QStringList({QStringLiteral("This computer"), QStringLiteral("<b>One</b>"),
                          QStringLiteral("Own"), QStringLiteral("Another address or folder")}));
    auto* choice = fixture.part<QComboBox>("swordSource");
    choice->setFocus();
    QTest::keyClick(choice, Qt::Key_Down);
    QVERIFY(fixture.isSeen("networkQuestion"));
    QVERIFY(choice->hasFocus());
    QTest::keyClick(choice, Qt::Key_Down);
    QVERIFY(!fixture.isSeen("networkQuestion"));
    QTRY_COMPARE(fixture.rows().size(), 1);
    QVERIFY(choice->hasFocus());
    QCOMPARE(fixture.textOf("swordNote"),
             QStringLiteral(
                 "Own offers these Bibles. \"Add...\" shows the selected one on the first page, without "
                 "installing anything yet."));
    QTest::keyClick(choice, Qt::Key_Home);
    QTRY_COMPARE(fixture.textOf("swordNote"),
                 QStringLiteral("No Bible for SWORD programs is installed on this computer."));
    QVERIFY(fixture.rows().isEmpty());
}

void SwordPageTest::listsAFolder()
{
    SwordFixture fixture;
    fixture.offer("Second", "Description=The second\tone\nLang=en\n");
    fixture.openPage();
    fixture.enterAddress("  " + fixture.repository() + "/ ");
    QTRY_COMPARE(fixture.part<QTreeWidget>("swordBibles")->topLevelItemCount() > 0, true);
    QVERIFY(!fixture.isSeen("networkQuestion"));
    fixture.part<QComboBox>("swordLanguage")->setFocus();
    QTest::keyClick(fixture.part("swordLanguage"), Qt::Key_Home);
    QCOMPARE(fixture.rows(),
             QStringList({QStringLiteral("Направена | bg | %1 | Made")
                              .arg(QLocale().formattedDataSize(4200000, 1, QLocale::DataSizeSIFormat)),
                          QStringLiteral("The second one | en |  | Second")}));
    QTest::keyClick(fixture.part("swordLanguage"), Qt::Key_End);
    QCOMPARE(fixture.rows(), QStringList(QStringLiteral("The second one | en |  | Second")));
    QVERIFY(!fs::exists(fixture.home("data/kedrin/sword")));
}

void SwordPageTest::listsAChosenFolder()
{
    SwordFixture fixture;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    fixture.openPage();
    QTest::keyClick(fixture.part("swordSource"), Qt::Key_End);
    QVERIFY(!fixture.part("swordShow")->isEnabled());
    fixture.click("swordFolder");
    auto* dialog = fixture.window().findChild<QFileDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    dialog->selectFile(QString::fromStdString(fixture.repository()));
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_COMPARE(fixture.rows().size(), 1);
    QCOMPARE(fixture.part<QLineEdit>("swordAddress")->text(), QString::fromStdString(fixture.repository()));
}

void SwordPageTest::listsAnAddressOnceItIsAllowed()
{
    SwordFixture fixture;
    const LoopbackServer server(fixture.answers(), 2); // gone after two requests
    fixture.openPage();
    fixture.enterAddress(server.address());
    QCOMPARE(fixture.textOf("networkQuestion"),
             QStringLiteral("The list of Bibles is fetched over the network from %1, and so is each Bible "
                            "that you add from it.")
                 .arg(QString::fromStdString(server.address())));
    QVERIFY(fixture.part("networkNo")->hasFocus());
    fixture.click("networkYes");
    QVERIFY(fixture.isSeen("listing"));
    QVERIFY(fixture.textOf("swordNote").startsWith(QStringLiteral("Fetching the list")));
    QTRY_COMPARE(fixture.rows().size(), 1);
    QVERIFY(!fixture.isSeen("listing"));
    QVERIFY(fixture.part("swordBibles")->hasFocus());
    fixture.enterAddress(server.address());
    QVERIFY(!fixture.isSeen("networkQuestion"));
    QTRY_COMPARE(fixture.rows().size(), 1);
}

void SwordPageTest::networkIsNotUsedWithoutConsent()
{
    SwordFixture fixture;
    const LoopbackServer server(fixture.answers(), 1); // gone after one request
    fixture.openPage();
    fixture.enterAddress(server.address());
    fixture.click("networkNo");
    QVERIFY(!fixture.isSeen("networkQuestion"));
    QCOMPARE(fixture.textOf("swordNote"), QStringLiteral("The network was not used."));
    fixture.enterAddress(server.address());
    QTest::keyClick(&fixture.window(), Qt::Key_Escape);
    QTRY_VERIFY(!fixture.isSeen("networkQuestion"));
    QVERIFY(fixture.rows().isEmpty());
    fixture.listAddress(server.address());
    QCOMPARE(fixture.rows().size(), 1); // so nothing has been sent before
}

void SwordPageTest::choosesTheUsersLanguage()
{
    const bool isBulgarian = QLocale::system().language() == QLocale::Bulgarian;
    SwordFixture fixture;
    fixture.offer("English", "Description=a\nLang=en-GB\n");
    fixture.offer("None", "Description=b\n");
    fixture.offer("Odd", "Description=c\nLang=<i>?</i>\n");
    fixture.openPage();
    fixture.listFolder();
    QCOMPARE(entries(fixture, "swordLanguage"),
             QStringList({QStringLiteral("All"), QStringLiteral("<i>?</i>"), QStringLiteral("български (bg)"),
                          QStringLiteral("British English (en-GB)")}));
    QCOMPARE(fixture.rows().size(), isBulgarian ? 1 : 4);
}

QTEST_MAIN(SwordPageTest)
#include "sword_page_test.moc"
