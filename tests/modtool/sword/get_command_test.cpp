// `kedrin-module get`: the Bibles of a SWORD repository, in a folder or served on the loopback, are added as `add` adds
// installed ones.

#include "build_fixture.h"
#include "get_fixture.h"
#include "process_setup.h"

#include <chrono>
#include <csignal>

namespace {

using build_test::answersFrom;
using build_test::filesOf;
using build_test::Getting;
using build_test::LoopbackServer;
using build_test::namesIn;
using build_test::Result;
using build_test::run;

class GetCommand : public Getting
{
};

TEST_F(GetCommand, AddsATextFromAFolderAsAddDoes)
{
    addMade();
    EXPECT_EQ(run({"add", "sword:Made", "--as", "other"}).code, 0);
    const Result result = run({"get", "made", "--repository", repository()});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.out.ends_with("\nadded         made; the next time Kedrin is started, its menu "
                                     "\"Преводи\" lists this translation\n"))
        << result.out;
    EXPECT_EQ(filesOf(bibles() + "/made"), filesOf(bibles() + "/other"));
    EXPECT_EQ(namesIn(texts()), std::vector<std::string>{"Made"});
}

TEST_F(GetCommand, AddsATextOverTheNetwork)
{
    for (const bool isCompressed : {false, true}) {
        addMade(isCompressed);
        EXPECT_EQ(run({"add", "sword:Made", "--as", "other", "--replace"}).code, 0);
        const LoopbackServer server(answersFrom(repository()));
        const Result result = run({"get", "Made", "--repository", server.address(), "--yes", "--replace"});
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(filesOf(bibles() + "/made"), filesOf(bibles() + "/other"));
        EXPECT_EQ(namesIn(texts()), std::vector<std::string>{"Made"});
    }
}

/// A process keeps ignoring what the one that started it ignored. Ends of children that are ignored cannot be waited for.
TEST_F(GetCommand, TransfersWhereTheEndsOfChildrenWereIgnored)
{
    addMade();
    const LoopbackServer server(answersFrom(repository()));
    std::signal(SIGCHLD, SIG_IGN);
    Kedrin::ModTool::setUpProcess();
    const Result result = run({"get", "Made", "--repository", server.address(), "--yes"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.code, 0);
}

TEST_F(GetCommand, NamesAndPutsTheModuleFirst)
{
    addMade();
    const Result result = run({"get", "Made", "--repository", repository(), "--as", "my", "--first"});
    EXPECT_TRUE(result.out.ends_with(
        "\nadded         my; the next time Kedrin is started, it opens this translation\n"))
        << result.out;
    EXPECT_EQ(namesIn(bibles()), (std::vector<std::string>{"!my", "BibleStructure.txt"}));
}

TEST_F(GetCommand, ReplacesOnlyWhenAsked)
{
    addMade();
    ASSERT_EQ(run({"get", "Made", "--repository", repository()}).code, 0);
    EXPECT_EQ(run({"get", "Made", "--repository", repository()}),
              (Result{1, "",
                      "kedrin-module: a module named \"made\" is already installed; choose another name, or "
                      "replace it\n"}));
    const Result result = run({"get", "Made", "--repository", repository(), "--replace"});
    EXPECT_NE(result.out.find("\nreplaced      made;"), std::string::npos) << result.out;
    EXPECT_EQ(namesIn(texts()), std::vector<std::string>{"Made"});
}

TEST_F(GetCommand, UsesNoNetworkWithoutAnAnswer)
{
    const std::string nowhere = "http://127.0.0.1:1/sword";
    const Result refused = {1, "",
                            "kedrin-module: get would use the network (" + nowhere + "); --yes allows it\n"};
    EXPECT_EQ(run({"get", "Made", "--repository", nowhere}), refused);
    EXPECT_EQ(run({"get", "--list", "--repository", nowhere}), refused);
    EXPECT_EQ(run({"get", "Made", "--repository", nowhere, "--yes"}),
              (Result{1, "",
                      "kedrin-module: " + nowhere +
                          ": nothing answers there, or it is not a repository of SWORD texts\n"}));
    expectNothingInstalled();
}

TEST_F(GetCommand, ListsTheBiblesOfARepository)
{
    addMade();
    m_sword.add("Second", {{"John 1:1", "word"}},
                "Description=The second\tone\nLang=en\nInstallSize=4200000\n");
    m_sword.add("Lexicon", {}, "Description=Not a Bible\n");
    const std::string conf = repository() + "/mods.d/Lexicon.conf";
    std::string text = build_test::bytesOf(conf);
    text.replace(text.find("RawText"), 7, "RawLD");
    std::ofstream(conf) << text;
    const std::string list = "Made    bg  -          Направена\n"
                             "Second  en  4.2 MB     The second one\n";
    EXPECT_EQ(run({"get", "--list", "--repository", repository()}), (Result{0, list, ""}));
    const LoopbackServer server(answersFrom(repository()));
    EXPECT_EQ(run({"get", "--list", "--repository", server.address(), "--yes"}), (Result{0, list, ""}));
    EXPECT_EQ(run({"get", "--list", "--repository", "file://" + repository(), "--language", "bg"}),
              (Result{0, "Made  bg  -          Направена\n", ""}));
    EXPECT_EQ(run({"get", "--list", "--repository", repository(), "--language", "de"}),
              (Result{0, "no Bible is offered\n", ""}));
    EXPECT_EQ(run({"get", "--list", "--repository", repository(), "--repository", repository() + "/mods.d"}),
              (Result{1, repository() + ":\n" + list,
                      "kedrin-module: " + repository() +
                          "/mods.d: nothing answers there, or it is not a repository of SWORD texts\n"}));
}

TEST_F(GetCommand, WritesListsAsJson)
{
    addMade();
    m_sword.add("Second", {{"John 1:1", "word"}}, "Description=The \"second\"\nInstallSize=4200000\n");
    configure("DIRSource=Own|local|" + repository() + "\n");
    EXPECT_EQ(run({"get", "--json"}), (Result{0, "[]\n", ""})) << "outside a section";
    configure("[Sources]\nDIRSource=Own|local|" + repository() + "\nHTTPSource=Two|example.org|/a\n");
    EXPECT_EQ(run({"get", "--json"}),
              (Result{0,
                      "[\n  {\n    \"name\": \"Own\",\n    \"address\": \"" + repository() +
                          "\"\n  },\n  {\n    \"name\": \"Two\",\n    \"address\": "
                          "\"http://example.org/a\"\n  }\n]\n",
                      ""}));
    const std::string list =
        "[\n  {\n    \"repository\": \"Own\",\n    \"name\": \"Made\",\n    \"language\": "
        "\"bg\",\n    \"title\": \"Направена\",\n    \"size\": 0\n  },\n  {\n    "
        "\"repository\": \"Own\",\n    \"name\": \"Second\",\n    \"language\": \"\",\n    "
        "\"title\": \"The \\\"second\\\"\",\n    \"size\": 4200000\n  }\n]\n";
    EXPECT_EQ(run({"get", "--list", "--json", "--repository", "Own"}), (Result{0, list, ""}));
    EXPECT_EQ(
        run({"get", "--list", "--json", "--repository", "Own", "--repository", repository() + "/mods.d"}),
        (Result{1, list,
                "kedrin-module: " + repository() +
                    "/mods.d: nothing answers there, or it is not a repository of SWORD texts\n"}));
    EXPECT_EQ(run({"get", "--list", "--json", "--repository", "Own", "--language", "de"}),
              (Result{0, "[]\n", ""}));
}

TEST_F(GetCommand, SaysNothingWhereItIsToBeQuiet)
{
    addMade();
    EXPECT_EQ(run({"get", "Made", "--repository", repository(), "-q"}), (Result{0, "", ""}));
    EXPECT_EQ(namesIn(texts()), std::vector<std::string>{"Made"});
    EXPECT_EQ(run({"get", "Lost", "--repository", repository(), "--quiet"}),
              (Result{1, "", "kedrin-module: " + repository() + " offers no Bible named \"Lost\"\n"}));
}

TEST_F(GetCommand, KnowsTheRepositoriesOfTheSwordConfiguration)
{
    EXPECT_EQ(run({"get"}),
              (Result{0, "no repository is configured for SWORD; name one with --repository\n", ""}));
    EXPECT_EQ(run({"get", "Made"}),
              (Result{1, "",
                      "kedrin-module: no repository is configured for SWORD; name one with --repository\n"}));
    addMade();
    configure("[General]\nPassiveFTP=true\n[Sources]\nFTPSource=One|ftp.example.org|/pub/sword|||1\n"
              "HTTPSSource=The other|example.org|/sword/\nHTTPSource=broken\nDIRSource=Own|local|" +
              repository() + "\n");
    EXPECT_EQ(run({"get"}), (Result{0,
                                    "One        ftp://ftp.example.org/pub/sword\n"
                                    "The other  https://example.org/sword\n"
                                    "Own        " +
                                        repository() + '\n',
                                    ""}));
    EXPECT_EQ(run({"get", "Made", "--repository", "Own"}).code, 0);
}

TEST_F(GetCommand, LooksInEachRepository)
{
    addMade();
    const test_support::TempFolder empty;
    empty.write("mods.d/a.conf", "[Other]\nModDrv=RawText\n");
    const std::string other = empty.path().string();
    EXPECT_EQ(run({"get", "Made", "--repository", other, "--repository", repository()}).code, 0);
    EXPECT_EQ(run({"get", "Lost", "--repository", other}),
              (Result{1, "", "kedrin-module: " + other + " offers no Bible named \"Lost\"\n"}));
    EXPECT_EQ(
        run({"get", "Lost", "--repository", "nowhere"}),
        (Result{
            1, "",
            "kedrin-module: \"nowhere\" is not the name of a known repository, an address (http, https or "
            "ftp) or a folder\n"}));
}

TEST_F(GetCommand, RemovesWhatWasLeftADayAgo)
{
    addMade();
    std::filesystem::create_directories(texts() + "/.get-older/text");
    std::filesystem::create_directories(texts() + "/.get-newer/text");
    std::filesystem::last_write_time(texts() + "/.get-older",
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(25));
    EXPECT_EQ(run({"get", "Made", "--repository", repository()}).code, 0);
    EXPECT_EQ(namesIn(texts()), (std::vector<std::string>{".get-newer", "Made"}));
}

TEST_F(GetCommand, RejectedTextLeavesNothing)
{
    m_sword.add("Greek", {{"John 1:1", "Ἐν ἀρχῇ ἦν ὁ λόγος"}});
    EXPECT_EQ(run({"get", "Greek", "--repository", repository()}),
              (Result{1, "", "kedrin-module: 14 of 14 letters have no equivalent in Windows-1251\n"}));
    EXPECT_FALSE(std::filesystem::exists(texts()));
    EXPECT_EQ(run({"get", "Greek", "--repository", repository(), "--as", "a/b"}),
              (Result{1, "", "kedrin-module: \"a/b\" cannot be the name of a module\n"}));
}

TEST_F(GetCommand, RefusesArgumentsThatDoNotBelongTogether)
{
    const auto said = [](const std::vector<std::string>& arguments) {
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2);
        return result.err.substr(0, result.err.find('\n'));
    };
    EXPECT_EQ(said({"get", "A", "--list"}), "kedrin-module: get takes NAME or --list, but not both");
    EXPECT_EQ(said({"get", "--list", "--first"}), "kedrin-module: --as, --first and --replace require NAME");
    EXPECT_EQ(said({"get", "A", "--language", "bg"}), "kedrin-module: --language requires --list");
    EXPECT_EQ(said({"get", "A", "--json"}), "kedrin-module: get takes NAME or --json, but not both");
    EXPECT_EQ(said({"get", "--list", "-q"}), "kedrin-module: --quiet requires NAME");
    EXPECT_EQ(said({"get", "--repository", "A"}), "kedrin-module: --repository requires NAME or --list");
}

} // namespace
