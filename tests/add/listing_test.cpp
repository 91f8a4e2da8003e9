#include "sword_fixture.h"

#include <QTest>

using namespace add_test;
using build_test::LoopbackServer;
using Kind = build_test::LoopbackServer::Answer::Kind;

/// A list of Bibles that cannot be fetched, is hostile, or is not waited for.
class ListingTest : public QObject
{
    Q_OBJECT

private slots:
    void wrongAddressIsTold();
    void brokenRepositoryIsTold_data();
    void brokenRepositoryIsTold();
    void hostileDescriptionIsShownAsItIs();
    void listingIsCancelled();
    void anotherChoiceEndsListing();
    void openedTextEndsListing();
};

namespace {

/// Those of a repository whose list of Bibles does not come.
auto stalledAnswers(const SwordFixture& fixture)
{
    auto answers = fixture.answers();
    answers["/mods.d.tar.gz"].kind = Kind::stalled;
    return answers;
}

void beginListing(SwordFixture& fixture, const LoopbackServer& server)
{
    fixture.openPage();
    fixture.enterAddress(server.address());
    fixture.click("networkYes");
}

} // namespace

void ListingTest::wrongAddressIsTold()
{
    SwordFixture fixture;
    fixture.openPage();
    fixture.enterAddress("gopher://example.org");
    QCOMPARE(
        fixture.textOf("swordNote"),
        QStringLiteral("\"gopher://example.org\" is not the name of a known repository, an address (http, "
                       "https or ftp) or a folder"));
    fixture.enterAddress(fixture.home(""));
    QTRY_VERIFY(
        fixture.textOf("swordNote").startsWith(QStringLiteral("The list of Bibles cannot be shown: /")));
    QVERIFY2(fixture.textOf("swordNote").endsWith(QStringLiteral("it is not a repository of SWORD texts")),
             qPrintable(fixture.textOf("swordNote")));
}

void ListingTest::brokenRepositoryIsTold_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("said");
    const auto row = [](const char* name, const char* body, Kind kind, const char* said) {
        QTest::newRow(name) << QString::fromLatin1(body) << static_cast<int>(kind)
                            << QString::fromLatin1(said);
    };
    row("no catalogue", "<h1>Hello</h1>", Kind::whole, "/mods.d.tar.gz: is not a catalogue of SWORD texts");
    row("broken off", "0123456789", Kind::brokenOff, "/mods.d.tar.gz: the transfer broke off");
    row("elsewhere", "file:///etc/passwd", Kind::redirect,
        ": nothing answers there, or it is not a repository of SWORD texts");
}

void ListingTest::brokenRepositoryIsTold()
{
    QFETCH(QString, body);
    QFETCH(int, kind);
    QFETCH(QString, said);
    SwordFixture fixture;
    const LoopbackServer server({{"/mods.d.tar.gz", {body.toStdString(), static_cast<Kind>(kind)}}});
    fixture.openPage();
    fixture.enterAddress(server.address());
    fixture.click("networkYes");
    QTRY_COMPARE(fixture.textOf("swordNote"), QStringLiteral("The list of Bibles cannot be shown: ") +
                                                  QString::fromStdString(server.address()) + said);
    QVERIFY(!fixture.isSeen("listing"));
    QVERIFY(!fixture.part("addSword")->isEnabled());
    QVERIFY(fixture.hasNothing());
}

void ListingTest::hostileDescriptionIsShownAsItIs()
{
    SwordFixture fixture;
    fixture.offer("Hostile", "Description=<h1>Бог</h1><img src='x'>" + std::string(100000, 'a') +
                                 "\nLang=bg\nInstallSize=18446744073709551615\n");
    fixture.openPage();
    fixture.listFolder();
    const QString row = fixture.rows().first();
    QVERIFY2(row.startsWith(QStringLiteral("<h1>Бог</h1><img src='x'>aaa")), qPrintable(row));
    QVERIFY2(row.endsWith(QStringLiteral("a… | bg |  | Hostile")), qPrintable(row));
    QVERIFY(fixture.window().width() < 5000);
}

void ListingTest::listingIsCancelled()
{
    SwordFixture fixture;
    const LoopbackServer server(stalledAnswers(fixture));
    beginListing(fixture, server);
    QTRY_COMPARE(fixture.textOf("listingName"), QStringLiteral("downloading"));
    fixture.click("cancelListing");
    QTRY_COMPARE(fixture.textOf("swordNote"), QStringLiteral("Cancelled."));
    QVERIFY(!fixture.isSeen("listing"));
    QVERIFY(fixture.hasNothing());
    fixture.listFolder();
    QCOMPARE(fixture.rows().size(), 1);
}

void ListingTest::anotherChoiceEndsListing()
{
    SwordFixture fixture;
    const LoopbackServer server(stalledAnswers(fixture));
    beginListing(fixture, server);
    fixture.listFolder();
    QCOMPARE(fixture.rows().size(), 1);
}

void ListingTest::openedTextEndsListing()
{
    SwordFixture fixture;
    const LoopbackServer server(stalledAnswers(fixture));
    beginListing(fixture, server);
    fixture.dropAndWait(fixture.file("a.vpl"));
    QVERIFY(fixture.isSeen("add"));
    QCOMPARE(fixture.textOf("swordNote"), QStringLiteral("Cancelled."));
}

QTEST_MAIN(ListingTest)
#include "listing_test.moc"
