// The possible paths of a module's folder: each gives a correct module or one error, and nothing else is
// created or lost.

#include "built_process.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using namespace process_test;

class ModulePath : public BuiltProcess
{
protected:
    ModulePath() { beginWithNothing(); }

    ForkedEnd buildInto(const std::string& folder) const
    {
        return run(tool({"build", "-q", newSource(), folder}));
    }

    /// Whether this folder contains only the new module and the global structure.
    testing::AssertionResult isMadeIn(const std::string& directory, const std::string& name) const
    {
        if (build_test::filesOf(directory + '/' + name) != newFiles())
            return testing::AssertionFailure() << "no module in " << name;
        const std::vector<std::string> names = build_test::namesIn(directory);
        if (names != std::vector<std::string>{"BibleStructure.txt", name})
            return testing::AssertionFailure() << "there lies " << testing::PrintToString(names);
        return testing::AssertionSuccess();
    }

    /// Checks that it is refused with this text, and the modules directory stays empty.
    testing::AssertionResult isRefused(const std::string& folder, const std::string& message) const
    {
        const ForkedEnd end = buildInto(folder);
        if (end.exitCode != 1 || end.standardError != "kedrin-module: " + message + '\n')
            return testing::AssertionFailure() << "exit code " << end.exitCode << ", " << end.standardError;
        if (!build_test::namesIn(modules()).empty())
            return testing::AssertionFailure() << testing::PrintToString(build_test::namesIn(modules()));
        return testing::AssertionSuccess();
    }

    std::string link(const std::string& name, const std::string& target) const
    {
        fs::create_symlink(target, m_folder.file(name));
        return m_folder.file(name);
    }
};

TEST_F(ModulePath, MayGoUpAgain)
{
    EXPECT_EQ(buildInto(modules() + "/../modules/absent/../made").exitCode, 0);
    EXPECT_TRUE(isMadeIn(modules(), "made"));
}

TEST_F(ModulePath, MayEndWithSlashes)
{
    EXPECT_EQ(buildInto(made() + "///").exitCode, 0);
    EXPECT_TRUE(isMadeIn(modules(), "made"));
}

TEST_F(ModulePath, MayLeadThroughALink)
{
    EXPECT_EQ(buildInto(link("link", modules()) + "/made").exitCode, 0);
    EXPECT_TRUE(isMadeIn(modules(), "made"));
}

TEST_F(ModulePath, OfALinkMakesTheModuleWhereItLeads)
{
    beginWithTheOldModule();
    EXPECT_EQ(buildInto(link("link", made())).exitCode, 0);
    EXPECT_TRUE(isMadeIn(modules(), "made"));
    EXPECT_EQ(fs::read_symlink(m_folder.file("link")), made());
}

TEST_F(ModulePath, OfADanglingLinkIsRefused)
{
    const std::string name = link("link", m_folder.file("nothing"));
    EXPECT_TRUE(isRefused(name, name + ": is not a folder"));
    EXPECT_EQ(fs::read_symlink(name), m_folder.file("nothing"));
    EXPECT_TRUE(isRefused(name + "/made", name + ": cannot be written (File exists)"));
    EXPECT_FALSE(fs::exists(m_folder.file("nothing")));
}

TEST_F(ModulePath, OfALinkToItselfIsRefused)
{
    const std::string name = link("link", m_folder.file("link"));
    EXPECT_TRUE(isRefused(name, name + ": cannot be written (Too many levels of symbolic links)"));
}

TEST_F(ModulePath, ThatIsTooLongIsRefused)
{
    const std::string name = modules() + '/' + std::string(250, 'x');
    EXPECT_TRUE(isRefused(name, modules() + "/." + std::string(250, 'x') +
                                    ".lock: cannot be written (File name too long)"));
}

TEST_F(ModulePath, ThatIsEmptyIsAUsageError)
{
    EXPECT_EQ(buildInto("").exitCode, 2);
    EXPECT_TRUE(build_test::namesIn(modules()).empty());
}

TEST_F(ModulePath, OfTheRootOrOfAFolderWithOtherFilesIsRefused)
{
    EXPECT_TRUE(isRefused("/", "/: is not empty and contains no module, so it is not replaced"));
    EXPECT_TRUE(isRefused("//", "/: is not empty and contains no module, so it is not replaced"));
    EXPECT_TRUE(
        isRefused(modules() + "/..",
                  m_folder.path().string() + ": is not empty and contains no module, so it is not replaced"));
}

TEST_F(ModulePath, MayBeTheCurrentDirectory)
{
    fs::create_directory(made());
    const ForkedEnd end = test_support::runForked([&]() -> int {
        fs::current_path(made());
        become(tool({"build", "-q", newSource(), "."}));
    });
    EXPECT_EQ(end.exitCode, 0) << end.standardError;
    EXPECT_TRUE(isMadeIn(modules(), "made"));
}

TEST_F(ModulePath, MayBeABareName)
{
    const ForkedEnd end = test_support::runForked([&]() -> int {
        fs::current_path(modules());
        become(tool({"build", "-q", newSource(), "made"}));
    });
    EXPECT_EQ(end.exitCode, 0) << end.standardError;
    EXPECT_TRUE(isMadeIn(modules(), "made"));
}

TEST_F(ModulePath, InAReadOnlyDirectoryIsRefused)
{
    beginWithTheOldModule();
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(modules().c_str(), 0555), 0);
    const ForkedEnd end = test_support::runForked([&]() -> int {
        test_support::becomeNobody();
        const build_test::Result result = build_test::run({"build", "-q", newSource(), made()});
        std::fputs(result.err.c_str(), stderr);
        return result.code;
    });
    ASSERT_EQ(::chmod(modules().c_str(), 0755), 0);
    EXPECT_EQ(end.exitCode, 1);
    EXPECT_EQ(end.standardError,
              "kedrin-module: " + modules() + "/.made.lock: cannot be written (Permission denied)\n");
    EXPECT_TRUE(build_test::filesOf(made()) == oldFiles());
}

/// It would be deleted with the module.
TEST_F(ModulePath, WithTheSourceInItIsRefused)
{
    beginWithTheOldModule();
    const std::string source = m_folder.write("modules/made/text/New.vpl", build_test::bytesOf(newSource()));
    const std::string message =
        "kedrin-module: " + source + ": is inside the module's folder, which is replaced as a whole\n";
    for (const Command& arguments : {Command{"build", source, made()},
                                     {"build", source, link("link", modules()) + "/made/"},
                                     {"build", newSource(), made(), "--copyright", source}})
        EXPECT_EQ(build_test::run(arguments), (build_test::Result{1, "", message}));
    EXPECT_TRUE(fs::exists(source));
    fs::remove_all(made() + "/text");
    EXPECT_TRUE(build_test::filesOf(made()) == oldFiles());
}

TEST_F(ModulePath, MayBeginAsTheSourceDoes)
{
    fs::rename(newSource(), m_folder.file("modules/Made.vpl"));
    EXPECT_EQ(run(tool({"build", "-q", modules() + "/Made.vpl", modules() + "/Made"})).exitCode, 0);
    EXPECT_TRUE(build_test::filesOf(modules() + "/Made") == newFiles());
}

} // namespace
