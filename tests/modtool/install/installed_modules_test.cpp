#include "errors.h"
#include "installed_modules.h"
#include "temp_folder.h"
#include "thrown.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using namespace Kedrin::ModTool;
using test_support::messageOf;

/// A separate home directory, and the working directory of the test.
class InstalledModules : public testing::Test
{
protected:
    void SetUp() override
    {
        ::setenv("XDG_DATA_HOME", m_home.file("data").c_str(), 1);
        fs::create_directories(m_home.file("here"));
        fs::current_path(m_home.file("here"));
    }

    void TearDown() override
    {
        fs::current_path("/");
        ::unsetenv("XDG_DATA_HOME");
    }

    static std::string install(const std::string& name)
    {
        return makeModule(ownModulesFolder() + '/' + name);
    }

    static std::string makeModule(const std::string& folder)
    {
        fs::create_directories(folder);
        std::ofstream(folder + "/BibleTitles.txt") << "1 0\nA\nA\nA\n";
        return folder;
    }

    static std::vector<std::string> names()
    {
        std::vector<std::string> all;
        for (const InstalledModule& module : installedModules())
            all.push_back(module.name);
        return all;
    }

    test_support::TempFolder m_home;
};

using Names = std::vector<std::string>;

TEST_F(InstalledModules, OwnFolderIsWhereDesktopsKeepData)
{
    EXPECT_EQ(ownModulesFolder(), m_home.file("data/kedrin/modules/bibles"));
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::setenv("HOME", "/home/reader", 1);
    EXPECT_EQ(ownModulesFolder(), "/home/reader/.local/share/kedrin/modules/bibles");
    ::unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(ownModulesFolder(), "/home/reader/.local/share/kedrin/modules/bibles");
}

TEST_F(InstalledModules, AreListedInTheReadersOrder)
{
    EXPECT_EQ(names(), Names());
    for (const char* name : {"web", "KJV", "цариградски", "bg-1940", "!my"})
        install(name);
    EXPECT_EQ(names(), (Names{"my", "bg-1940", "KJV", "web", "цариградски"}));
}

TEST_F(InstalledModules, HiddenFoldersAndOthersAreIgnored)
{
    install(".my.building");
    fs::create_directories(ownModulesFolder() + "/empty");
    std::ofstream(ownModulesFolder() + "/BibleStructure.txt") << "1 1";
    EXPECT_EQ(names(), Names());
}

TEST_F(InstalledModules, NameLeadsToTheFolder)
{
    const std::string web = install("web"), first = install("!my");
    EXPECT_EQ(moduleFolder("web"), web);
    EXPECT_EQ(moduleFolder("my"), first);
}

TEST_F(InstalledModules, PathStaysAPath)
{
    install("web");
    makeModule("web");
    EXPECT_EQ(moduleFolder("web"), "web"); // a module folder in the current one takes precedence
    EXPECT_EQ(moduleFolder("./web"), "./web");
    EXPECT_EQ(moduleFolder("no/such"), "no/such");
    EXPECT_EQ(moduleFolder("."), ".");
    fs::create_directories("kjv"); // not a module
    install("kjv");
    EXPECT_EQ(moduleFolder("kjv"), ownModulesFolder() + "/kjv");
}

TEST_F(InstalledModules, UnknownNameIsAnsweredWithNamesLikeIt)
{
    install("bg-1940");
    EXPECT_EQ(messageOf<CModuleError>([] { moduleFolder("bg1940"); }),
              "no module is named \"bg1940\" (did you mean bg-1940?)");
    EXPECT_EQ(messageOf<CModuleError>([] { moduleFolder("kjv"); }), "no module is named \"kjv\"");
}

TEST_F(InstalledModules, NameIsMadeOfLettersAndDigits)
{
    EXPECT_EQ(moduleNameFrom("King James Version (1769)"), "king-james-version-1769");
    EXPECT_EQ(moduleNameFrom("  ../Библия,  1940 г.! "), "библия-1940-г");
    EXPECT_EQ(moduleNameFrom("../.."), "");
    EXPECT_EQ(moduleNameFrom("!a"), "a");
}

TEST_F(InstalledModules, NameIsTheSameInEveryLanguageOfTheUser)
{
    const icu::Locale before = icu::Locale::getDefault();
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault("tr", status); // where I is no capital of i
    EXPECT_EQ(moduleNameFrom("KJVI"), "kjvi");
    icu::Locale::setDefault(before, status);
}

TEST_F(InstalledModules, OwnOneIsRemovedWhole)
{
    const std::string web = install("web");
    install("kjv");
    fs::create_directories(ownModulesFolder() + "/.web.removed/rest"); // of an interrupted removal
    removeOwnModule("web");
    EXPECT_EQ(names(), Names{"kjv"});
    EXPECT_FALSE(fs::exists(web));
    EXPECT_FALSE(fs::exists(ownModulesFolder() + "/.web.removed"));
    EXPECT_EQ(messageOf<CModuleError>([] { removeOwnModule("web"); }), "no module is named \"web\"");
}

/// The launcher creates such links next to the user's own modules.
TEST_F(InstalledModules, LinkToAModuleOfTheSystemIsNotTheUsersOwn)
{
    const std::string system = makeModule(m_home.file("usr/kjv"));
    fs::create_directories(ownModulesFolder());
    fs::create_directory_symlink(system, ownModulesFolder() + "/kjv");
    ASSERT_EQ(names(), Names{"kjv"});
    EXPECT_FALSE(installedModules()[0].isOwn);
    EXPECT_EQ(messageOf<CModuleError>([] { removeOwnModule("kjv"); }),
              "\"kjv\" is not one of your own modules: it lies in " +
                  fs::canonical(m_home.file("usr")).string());
    EXPECT_TRUE(fs::exists(system + "/BibleTitles.txt"));
}

} // namespace
