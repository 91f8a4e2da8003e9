// Publishing a module: completely or not at all, whatever existed and whatever fails.

#include "module_folder.h"

#include "build_fixture.h"
#include "errors.h"
#include "thrown.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using build_test::bytesOf;
using build_test::filesOf;
using build_test::namesIn;
using build_test::Result;
using Kedrin::ModTool::CBuildError;
using Kedrin::ModTool::CFolderBusy;
using Kedrin::ModTool::CModuleFolder;
using test_support::messageOf;

class PublishedFolder : public build_test::Building
{
protected:
    using Names = std::vector<std::string>;
    const Names onlyTheModule{"BibleStructure.txt", "made"};
    static constexpr std::string_view old = "Gen\t1\t1\tстаро\n";
    static constexpr std::string_view fresh = "Gen\t1\t1\tново\n";

    void write(const std::string& name, const std::string& content) const
    {
        m_folder.write("modules/" + name, content);
    }
};

TEST_F(PublishedFolder, IsMadeWithItsParentFolders)
{
    m_folder.write("Made.vpl", fresh);
    const std::string folder = m_folder.file("a/b/c");
    EXPECT_EQ(build_test::run({"build", m_folder.file("Made.vpl"), folder}).code, 0);
    EXPECT_EQ(namesIn(folder).size(), 10u);
    EXPECT_EQ(namesIn(m_folder.file("a/b")), (Names{"BibleStructure.txt", "c"}));
}

TEST_F(PublishedFolder, ReplacesAModuleAsAWhole)
{
    ASSERT_EQ(build(old).code, 0);
    write("made/note.txt", "of before");
    ASSERT_EQ(build(fresh).code, 0);
    EXPECT_EQ(verse(0, 0, 0), "ново");
    EXPECT_EQ(namesIn(made()).size(), 10u);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, ReplacesAnEmptyFolder)
{
    fs::create_directories(made());
    EXPECT_EQ(build(fresh).code, 0);
    EXPECT_EQ(verse(0, 0, 0), "ново");
}

TEST_F(PublishedFolder, NameMayEndWithASlash)
{
    m_folder.write("Made.vpl", fresh);
    EXPECT_EQ(build_test::run({"build", sourceName(), made() + "/"}).code, 0);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, MayBeReachedThroughALink)
{
    ASSERT_EQ(build(old).code, 0);
    fs::create_directory_symlink(made(), m_folder.file("link"));
    EXPECT_EQ(build_test::run({"build", m_folder.write("New.vpl", fresh), m_folder.file("link")}).code, 0);
    EXPECT_EQ(verse(0, 0, 0), "ново");
    EXPECT_TRUE(fs::is_symlink(m_folder.file("link")));
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, OfAnotherKindIsNotReplaced)
{
    write("made/letter.txt", "dear reader");
    EXPECT_EQ(build(fresh), (Result{1, "",
                                    "kedrin-module: " + made() +
                                        ": is not empty and contains no module, so it is not replaced\n"}));
    EXPECT_EQ(filesOf(made()), (std::map<std::string, std::string>{{"letter.txt", "dear reader"}}));
    EXPECT_EQ(namesIn(modules()), (Names{"made"}));
}

TEST_F(PublishedFolder, DoesNotReplaceAFile)
{
    write("made", "a file");
    EXPECT_EQ(build(fresh), (Result{1, "", "kedrin-module: " + made() + ": is not a folder\n"}));
    EXPECT_EQ(bytesOf(made()), "a file");
}

TEST_F(PublishedFolder, CannotBeMadeBelowAFile)
{
    const std::string file = m_folder.write("file", "");
    m_folder.write("Made.vpl", fresh);
    EXPECT_EQ(build_test::run({"build", sourceName(), file + "/made"}).err,
              "kedrin-module: " + file + ": cannot be written (Not a directory)\n");
}

TEST_F(PublishedFolder, IsUnchangedWhenTheSourceIsRefused)
{
    ASSERT_EQ(build(old).code, 0);
    const auto before = filesOf(made());
    EXPECT_EQ(build("Gen\t1\t1\tæ\n").code, 1);
    EXPECT_EQ(build("nonsense\n").code, 1);
    EXPECT_EQ(filesOf(made()), before);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, IsUnchangedWhenTheGlobalStructureCannotBeWritten)
{
    ASSERT_EQ(build(old).code, 0);
    const auto before = filesOf(made());
    const std::string common = modules() + "/BibleStructure.txt";
    fs::remove(common);
    fs::create_directory(common);
    EXPECT_EQ(build(fresh),
              (Result{1, "", "kedrin-module: " + common + ": cannot be written (Is a directory)\n"}));
    EXPECT_EQ(filesOf(made()), before);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

/// Runs the program in a process with this limit on the size of files; its messages go to a file.
int runWithSmallFiles(rlim_t bytes, const std::vector<std::string>& arguments, const std::string& said)
{
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, bytes};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const Result result = build_test::run(arguments);
        std::ofstream(said) << result.err;
        std::_Exit(result.code);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(PublishedFolder, IsUnchangedWhenTheDiskIsFull)
{
    ASSERT_EQ(build(old).code, 0);
    const auto before = filesOf(made());
    std::string text = "Gen\t1\t1\t";
    for (unsigned int i = 0; i < 3000; ++i)
        text += "дума ";
    m_folder.write("Made.vpl", text);
    const std::string said = m_folder.file("said");
    EXPECT_EQ(runWithSmallFiles(4096, {"build", sourceName(), made()}, said), 1);
    EXPECT_EQ(bytesOf(said), "kedrin-module: " + modules() +
                                 "/.made.building/CompactText.bin: cannot be written (File too large)\n");
    EXPECT_EQ(filesOf(made()), before);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, IsClearedOfWhatAnInterruptedBuildLeft)
{
    write(".made.building/CompactText.bin", "half");
    write(".made.building/more/deep.txt", "half");
    write(".made.lock", "");
    EXPECT_EQ(build(fresh).code, 0);
    EXPECT_EQ(namesIn(made()).size(), 10u);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, RestoresTheModuleThatWasMovedAside)
{
    ASSERT_EQ(build(old).code, 0);
    fs::rename(made(), modules() + "/.made.replaced");
    {
        const CModuleFolder folder(made());
    }
    EXPECT_EQ(verse(0, 0, 0), "старо");
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, RemovesWhatWasReplacedButNotRemoved)
{
    ASSERT_EQ(build(old).code, 0);
    fs::copy(made(), modules() + "/.made.replaced");
    ASSERT_EQ(build(fresh).code, 0);
    EXPECT_EQ(verse(0, 0, 0), "ново");
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, IsBuiltByOneAtATime)
{
    ASSERT_EQ(build(old).code, 0);
    const auto before = filesOf(made());
    {
        CModuleFolder other(made());
        other.write("BibleTitles.txt", "1 0\n");
        EXPECT_EQ(
            build(fresh),
            (Result{1, "", "kedrin-module: " + made() + ": another build of this folder is running\n"}));
        EXPECT_EQ(bytesOf(other.besidePath() + "/BibleTitles.txt"), "1 0\n");
    }
    EXPECT_EQ(filesOf(made()), before);
    EXPECT_EQ(build(fresh).code, 0);
    EXPECT_EQ(namesIn(modules()), onlyTheModule);
}

TEST_F(PublishedFolder, SiblingsCanBeBuiltAtTheSameTime)
{
    const CModuleFolder other(modules() + "/other");
    EXPECT_EQ(build(fresh).code, 0);
}

TEST_F(PublishedFolder, TakesNothingThatWasNotPublished)
{
    {
        CModuleFolder folder(made());
        EXPECT_TRUE(fs::path(folder.besidePath()).filename().string().starts_with('.'));
        folder.write("BibleTitles.txt", "1 0\n");
    }
    EXPECT_EQ(namesIn(modules()), Names{});
}

TEST_F(PublishedFolder, IsNotListedWhileItIsBuilt)
{
    ASSERT_EQ(build(old).code, 0);
    CModuleFolder folder(modules() + "/other");
    folder.write("BibleTitles.txt", "1 0\n");
    const Kedrin::Tolvo::CBibleModules catalogue(modules());
    EXPECT_EQ(catalogue.count(), 1u);
}

TEST_F(PublishedFolder, IsReplacedAtomically)
{
    ASSERT_EQ(build(old).code, 0);
    CModuleFolder folder(made());
    folder.write("BibleTitles.txt", "new");
    folder.publish();
    EXPECT_EQ(filesOf(made()), (std::map<std::string, std::string>{{"BibleTitles.txt", "new"}}));
    EXPECT_TRUE(fs::exists(folder.besidePath() + "/CompactText.bin")) << "exchanged: the old one is beside";
}

TEST_F(PublishedFolder, SaysWhichFileCannotBeWritten)
{
    CModuleFolder folder(made());
    EXPECT_EQ(messageOf<CBuildError>([&] { folder.write("absent/file", "content"); }),
              folder.besidePath() + "/absent/file: cannot be written (No such file or directory)");
}

TEST_F(PublishedFolder, BusyIsAnErrorOfItsOwn)
{
    const CModuleFolder first(made());
    EXPECT_THROW(CModuleFolder second(made()), CFolderBusy);
}

class GlobalStructureFile : public PublishedFolder
{
protected:
    std::string common() const { return modules() + "/BibleStructure.txt"; }
    ino_t identity() const
    {
        struct stat status
        {
        };
        EXPECT_EQ(::stat(common().c_str(), &status), 0);
        return status.st_ino;
    }
};

TEST_F(GlobalStructureFile, StaysWhereItIsTheSame)
{
    ASSERT_EQ(build(old).code, 0);
    const ino_t before = identity();
    ASSERT_EQ(build(fresh).code, 0);
    EXPECT_EQ(identity(), before);
}

TEST_F(GlobalStructureFile, IsReplacedWhereItIsDifferent)
{
    ASSERT_EQ(build(old).code, 0);
    const std::string right = bytesOf(common());
    write("BibleStructure.txt", right + "1 1\n");
    ASSERT_EQ(build(fresh).code, 0);
    EXPECT_EQ(bytesOf(common()), right);
}

} // namespace
