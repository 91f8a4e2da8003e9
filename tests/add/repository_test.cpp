#include "sword_fixture.h"
#include "text_source.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include <filesystem>

using namespace add_test;
using build_test::LoopbackServer;
using Kind = build_test::LoopbackServer::Answer::Kind;

namespace {

namespace fs = std::filesystem;

/// The names in the folder of downloaded texts, hidden ones too.
QStringList texts(const SwordFixture& fixture)
{
    QStringList names;
    std::error_code ignored;
    for (fs::directory_iterator entry(fixture.home("data/kedrin/sword"), ignored), end; entry != end; ++entry)
        names.append(QString::fromStdString(entry->path().filename().string()));
    names.sort();
    return names;
}

/// Shows the Bible that is selected on the first page.
void look(const SwordFixture& fixture)
{
    fixture.click("addSword");
    QCOMPARE(fixture.window().currentIndex(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.isWorking(), longestWait);
}

} // namespace

/// A Bible of a repository is fetched, looked at and added.
class RepositoryTest : public QObject
{
    Q_OBJECT

private slots:
    void addsABibleOfThisComputer();
    void addsABibleOfAFolder();
    void addsABibleOverTheNetwork();
    void doubleClickShowsIt();
    void refusedTextLeavesNothing();
    void serverThatVanishesLeavesNothing();
    void damagedTextLeavesNothing();
    void cancelledDownloadLeavesNothing();
    void closingWhileDownloadingLeavesNothing();
    void closingBeforeAddingLeavesNothing();
    void anotherTextTakesThePlace();
    void addedTextThatIsNotKeptIsTold();
    void onlyARemoteRepositoryIsOnTheNetwork();
};

void RepositoryTest::addsABibleOfThisComputer()
{
    SwordFixture fixture;
    fixture.sword().add("Alpha", {{"Gen 1:1", "Бог"}}, "Description=Първи\n");
    fixture.sword().add("Beta", {{"Gen 1:1", "Бог"}, {"Gen 1:2", "земя"}}, "Description=Втори\n");
    fixture.openPage();
    auto* list = fixture.part<QTreeWidget>("swordBibles");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->topLevelItem(1)).center());
    look(fixture);
    QCOMPARE(fixture.textOf("format"), QStringLiteral("SWORD"));
    QCOMPARE(fixture.textOf("contents"), QStringLiteral("1 book, 1 chapter, 2 verses"));
    QCOMPARE(fixture.part<QLineEdit>("title")->text(), QStringLiteral("Втори"));
    fixture.addAndWait();
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("beta")));
    QVERIFY(texts(fixture).isEmpty());
}

void RepositoryTest::addsABibleOfAFolder()
{
    SwordFixture fixture;
    fixture.openPage();
    fixture.listFolder();
    QVERIFY(fixture.part("swordBibles")->hasFocus());
    look(fixture);
    QVERIFY(!fixture.isSeen("message"));
    QCOMPARE(fixture.textOf("format"), QStringLiteral("SWORD"));
    QCOMPARE(fixture.textOf("samples"), QStringLiteral("Gen 1:1  Бог\nGen 1:2  рече"));
    QCOMPARE(fixture.part<QLineEdit>("title")->text(), QStringLiteral("Направена"));
    QCOMPARE(fixture.part<QLineEdit>("name")->text(), QStringLiteral("made"));
    QVERIFY(fixture.folders().isEmpty());
    fixture.typeInto("name", QStringLiteral("моя"));
    fixture.addAndWait();
    QVERIFY2(fixture.isSeen("openKedrin"), qPrintable(fixture.textOf("message")));
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("моя")));
    QCOMPARE(texts(fixture), QStringList(QStringLiteral("Made")));
}

void RepositoryTest::addsABibleOverTheNetwork()
{
    SwordFixture fixture;
    const LoopbackServer server(fixture.answers());
    fixture.openPage();
    fixture.listAddress(server.address());
    fixture.click("addSword");
    QVERIFY(!fixture.isSeen("networkQuestion"));
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Downloading Made over the network from ") +
                                            QString::fromStdString(server.address()));
    QVERIFY(fixture.isWorking());
    QTRY_VERIFY_WITH_TIMEOUT(fixture.isSeen("add"), longestWait);
    fixture.addAndWait();
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("made")));
    QCOMPARE(texts(fixture), QStringList(QStringLiteral("Made")));
    fixture.closeWindow();
    QCOMPARE(texts(fixture), QStringList(QStringLiteral("Made")));
}

void RepositoryTest::doubleClickShowsIt()
{
    SwordFixture fixture;
    fixture.openPage();
    fixture.listFolder();
    auto* list = fixture.part<QTreeWidget>("swordBibles");
    const QPoint row = list->visualItemRect(list->topLevelItem(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.isSeen("add"), longestWait);
}

void RepositoryTest::refusedTextLeavesNothing()
{
    SwordFixture fixture;
    fixture.offer("Locked", "Description=a\nLang=bg\nCipherKey=\n");
    fixture.openPage();
    fixture.listFolder();
    look(fixture);
    QCOMPARE(fixture.textOf("message"),
             QStringLiteral("This text cannot be added: \"Locked\" is not a Bible that can be read"));
    QVERIFY(fixture.hasNothing());
}

void RepositoryTest::serverThatVanishesLeavesNothing()
{
    SwordFixture fixture;
    for (unsigned int requestsCount : {1u, 2u, 4u}) {
        const LoopbackServer server(fixture.answers(), requestsCount);
        fixture.openPage();
        fixture.listAddress(server.address());
        look(fixture);
        QVERIFY2(fixture.textOf("message").startsWith(QStringLiteral("This text cannot be added: ")),
                 qPrintable(fixture.textOf("message")));
        QVERIFY(!fixture.isSeen("add"));
        QVERIFY(fixture.hasNothing());
    }
}

void RepositoryTest::damagedTextLeavesNothing()
{
    SwordFixture fixture;
    auto answers = fixture.answers();
    answers["/texts/Made/ot.czz"].body = "x";
    const LoopbackServer server(answers);
    fixture.openPage();
    fixture.listAddress(server.address());
    look(fixture);
    QCOMPARE(fixture.textOf("message"), QStringLiteral("This text cannot be added: ot.czz: is damaged"));
    QVERIFY(fixture.hasNothing());
}

void RepositoryTest::cancelledDownloadLeavesNothing()
{
    SwordFixture fixture;
    auto answers = fixture.answers();
    answers["/texts/Made/ot.czz"].kind = Kind::stalled;
    const LoopbackServer server(answers);
    fixture.openPage();
    fixture.listAddress(server.address());
    fixture.click("addSword");
    QTRY_COMPARE(fixture.textOf("progressName"), QStringLiteral("downloading"));
    QTest::qWait(100); // in the middle of the file that never ends
    QVERIFY(fixture.isWorking());
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("cancel"));
    fixture.click("cancel");
    QTRY_VERIFY(!fixture.isWorking());
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Cancelled."));
    QVERIFY(fixture.hasNothing());
}

void RepositoryTest::closingWhileDownloadingLeavesNothing()
{
    SwordFixture fixture;
    auto answers = fixture.answers();
    answers["/texts/Made/ot.czz"].kind = Kind::stalled;
    const LoopbackServer server(answers);
    for (const bool isListed : {true, false}) {
        fixture.openPage();
        if (isListed) {
            fixture.listAddress(server.address());
            fixture.click("addSword");
        } else {
            fixture.enterAddress(server.address());
            fixture.click("networkYes");
        }
        QTest::qWait(100);
        fixture.window().close();
        fixture.closeWindow();
        QVERIFY(fixture.hasNothing());
    }
}

void RepositoryTest::closingBeforeAddingLeavesNothing()
{
    SwordFixture fixture;
    fixture.openPage();
    fixture.listFolder();
    look(fixture);
    QVERIFY(fixture.isSeen("add"));
    QCOMPARE(texts(fixture).size(), 1); // hidden
    fixture.closeWindow();
    QVERIFY(fixture.hasNothing());
}

void RepositoryTest::anotherTextTakesThePlace()
{
    SwordFixture fixture;
    fixture.openPage();
    fixture.listFolder();
    look(fixture);
    fixture.dropAndWait(fixture.file("a.vpl"));
    QCOMPARE(fixture.part<QLineEdit>("title")->text(), QStringLiteral("a"));
    QVERIFY(fixture.hasNothing());
    fixture.addAndWait();
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("a")));
    QVERIFY(texts(fixture).isEmpty());
}

void RepositoryTest::addedTextThatIsNotKeptIsTold()
{
    SwordFixture fixture;
    fixture.openPage();
    fixture.listFolder();
    look(fixture);
    const std::string hidden = texts(fixture).first().toStdString();
    fixture.file("data/kedrin/sword/Made/older");
    fixture.file("data/kedrin/sword/" + hidden + ".old/taken"); // where the older one would be put
    fixture.addAndWait();
    const QString said = fixture.textOf("message");
    QVERIFY2(said.startsWith(QStringLiteral("\"Направена\" has been added.")), qPrintable(said));
    QVERIFY2(said.contains(QStringLiteral("\nWhat was downloaded could not be kept: /")), qPrintable(said));
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("made")));
    QVERIFY(fs::exists(fixture.home("data/kedrin/sword/Made/older")));
}

void RepositoryTest::onlyARemoteRepositoryIsOnTheNetwork()
{
    using Kedrin::Add::TextSource;
    QVERIFY(!(TextSource{"bible.usfm", std::nullopt}).usesNetwork());
    QVERIFY(!(TextSource{"Alpha", {{"A folder", "/srv/sword"}}}).usesNetwork());
    QVERIFY((TextSource{"Alpha", {{"A server", "https://example.org/sword"}}}).usesNetwork());
}

QTEST_MAIN(RepositoryTest)
#include "repository_test.moc"
