// Repositories that are broken, hostile, too large or gone: an error says which, and nothing is left behind.

#include "errors.h"
#include "get_fixture.h"
#include "sword_repository.h"
#include "thrown.h"

namespace {

using namespace build_test;
using namespace Kedrin::ModTool;
using Answer = LoopbackServer::Answer;
using Kind = Answer::Kind;

class HostileRepository : public Getting
{
protected:
    void SetUp() override
    {
        Getting::SetUp();
        addMade(true);
        m_answers = answersFrom(repository());
    }

    /// What is said of a repository with these answers, without its address.
    std::string refusal(const std::map<std::string, Answer>& answers, unsigned int requestsCount = 0) const
    {
        const LoopbackServer server(answers, requestsCount);
        return refusalBy(server.address());
    }

    std::string refusalBy(const std::string& address) const
    {
        TransferLimits limits;
        limits.stall = std::chrono::milliseconds(800); // the start of the program included
        limits.byteCount = 1 << 20;
        CTerminalProgress progress(nullptr);
        const std::string said = test_support::messageOf<CToolError>([&] {
            CSwordRepositories(limits).fetch({address, address}, "Made", progress);
        });
        expectNothingInstalled();
        const std::size_t begin = said.find(address);
        return begin == 0 ? said.substr(address.size()) : said;
    }

    std::string refusalOfCatalogue(const std::string& entries) const
    {
        std::map<std::string, Answer> answers = m_answers;
        answers["/mods.d.tar.gz"] = {tarGz(entries)};
        return refusal(answers);
    }

    /// A catalogue with one description.
    static std::string described(const std::string& lines, const std::string& name = "Made")
    {
        return tarEntry("mods.d/made.conf", '[' + name + "]\nModDrv=zText\nCompressType=ZIP\n" + lines);
    }

    std::map<std::string, Answer> m_answers;
};

constexpr const char* unreadable = "\"Made\" is not a Bible that can be read";
constexpr const char* noCatalogue = "/mods.d.tar.gz: is not a catalogue of SWORD texts";

TEST_F(HostileRepository, PathsThatLeadElsewhereAreRefused)
{
    for (const char* path : {"../texts/Made/", "/etc/", "./texts/../../etc", "texts//Made", "a/.hidden/b", "",
                             "texts\\Made", "http://example.org/", "texts/Ma\nde"})
        EXPECT_EQ(refusalOfCatalogue(described(std::string("DataPath=") + path + '\n')),
                  std::string(path).find('\n') == std::string::npos ? unreadable
                                                                    : ": the files of Made are missing")
            << path;
}

TEST_F(HostileRepository, NamesThatAreNoFileNamesAreNotOffered)
{
    for (const char* name : {"../Made", "a/b", ".hidden", "", "a b"}) {
        const LoopbackServer server({{"/mods.d.tar.gz", {tarGz(described("DataPath=./a/\n", name))}}});
        EXPECT_EQ(run({"get", "--list", "--repository", server.address(), "--yes"}).out,
                  "no Bible is offered\n")
            << name;
    }
}

TEST_F(HostileRepository, TextsOfOtherKindsAreRefused)
{
    EXPECT_EQ(refusalOfCatalogue(described("DataPath=./texts/Made/\nCipherKey=\n")), unreadable);
    EXPECT_EQ(refusalOfCatalogue(tarEntry(
                  "mods.d/made.conf", "[Made]\nModDrv=zText\nCompressType=ROT13\nDataPath=./texts/Made/\n")),
              unreadable);
}

TEST_F(HostileRepository, CataloguesThatAreNoneAreRefused)
{
    const auto saidOf = [&](const std::string& bytes) {
        std::map<std::string, Answer> answers = m_answers;
        answers["/mods.d.tar.gz"] = {bytes};
        return refusal(answers);
    };
    const std::string good = m_answers["/mods.d.tar.gz"].body;
    EXPECT_EQ(saidOf("<html>Welcome</html>"), noCatalogue);
    EXPECT_EQ(saidOf(good.substr(0, good.size() - 20)), noCatalogue);
    EXPECT_EQ(saidOf(tarGz("")), noCatalogue);
    std::string wrongSize = described("DataPath=./texts/Made/\n");
    wrongSize.replace(124, 11, "77777777777");
    EXPECT_EQ(saidOf(tarGz(wrongSize)), noCatalogue);
    wrongSize.replace(124, 11, "-0000000001");
    EXPECT_EQ(saidOf(tarGz(wrongSize)), noCatalogue);
    EXPECT_EQ(saidOf(tarGz(tarEntry("mods.d/made.conf", "/etc/passwd", '2'))), noCatalogue) << "a link";
    EXPECT_EQ(saidOf(tarGz(tarEntry("mods.d/../../made.conf", "[Made]\n"))), noCatalogue);
    EXPECT_EQ(saidOf(tarGz(tarEntry("mods.d/a.conf", std::string(std::size_t(129) << 20, ' ')))),
              "/mods.d.tar.gz: is a catalogue of more than 128 MiB");
    EXPECT_EQ(refusal({}), ": nothing answers there, or it is not a repository of SWORD texts");
}

TEST_F(HostileRepository, TransfersAreBounded)
{
    const std::string text = "/texts/Made/ot.czz";
    std::map<std::string, Answer> answers = m_answers;
    answers[text].kind = Kind::brokenOff;
    EXPECT_EQ(refusal(answers), text + ": the transfer broke off");
    answers[text].kind = Kind::stalled;
    EXPECT_EQ(refusal(answers), text + ": the server sent nothing for 1 seconds");
    answers[text] = {std::string(100000, 'a'), Kind::endless};
    EXPECT_EQ(refusal(answers), text + ": is longer than 1 MiB");
    answers[text] = {std::string(1 << 21, 'a')};
    EXPECT_EQ(refusal(answers), text + ": is longer than 1 MiB");
    answers["/mods.d.tar.gz"] = {std::string(100000, 'a'), Kind::endless};
    EXPECT_EQ(refusal(answers), "/mods.d.tar.gz: is longer than 1 MiB");
    answers["/mods.d.tar.gz"] = {"file:///etc/passwd", Kind::redirect};
    EXPECT_EQ(refusal(answers), ": nothing answers there, or it is not a repository of SWORD texts");
}

TEST_F(HostileRepository, ServerThatVanishesLeavesNothing)
{
    constexpr unsigned int requestsOfAll = 7; // the catalogue and six files
    for (unsigned int count = 1; count < requestsOfAll; ++count)
        EXPECT_NE(refusal(m_answers, count), "") << count;
}

TEST_F(HostileRepository, MissingTestamentIsNone)
{
    std::map<std::string, Answer> answers = m_answers;
    for (const char* file : {"nt.czs", "nt.czv", "nt.czz"})
        answers.erase(std::string("/texts/Made/") + file);
    const LoopbackServer server(answers);
    const Result result = run({"get", "Made", "--repository", server.address(), "--yes"});
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("contains      1 book, 1 chapter, 2 verses"), std::string::npos) << result.out;
}

TEST_F(HostileRepository, DamagedFilesAreRefused)
{
    for (const char* name : {"ot.czs", "ot.czv", "ot.czz"}) {
        const std::string file = std::string("/texts/Made/") + name;
        std::map<std::string, Answer> answers = m_answers;
        answers.erase(file);
        EXPECT_EQ(refusal(answers), "ot.czz: is damaged") << name << " is missing";
        answers[file] = {std::string(m_answers[file].body.size(), '\xFF')};
        EXPECT_EQ(refusal(answers), "ot.czz: is damaged") << name;
        answers[file] = {m_answers[file].body.substr(0, m_answers[file].body.size() - 1)};
        EXPECT_EQ(refusal(answers), "ot.czz: is damaged") << name << " is cut short";
    }
    for (const auto& [path, answer] : m_answers)
        if (path.starts_with("/texts/"))
            std::ofstream(repository() + path, std::ios::binary | std::ios::trunc);
    EXPECT_EQ(refusalBy(repository()), ": the files of Made are missing") << "all are empty";
    addMade(false);
    std::ofstream(repository() + "/texts/Made/ot", std::ios::binary | std::ios::trunc) << "x";
    EXPECT_EQ(refusalBy(repository()), "ot: is damaged");
}

TEST_F(HostileRepository, LinksOutOfAFolderAreNotFollowed)
{
    const std::string file = repository() + "/texts/Made/ot.czz";
    std::filesystem::remove(file);
    std::filesystem::create_symlink("/etc/passwd", file);
    EXPECT_EQ(refusalBy(repository()), "/texts/Made/ot.czz: is not a file of the repository");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(refusalBy(repository()), "/texts/Made/ot.czz: is not a file of the repository");
}

} // namespace
