// `kedrin-module add`: adds a text to the user's own modules, or changes nothing.

#include "build_fixture.h"
#include "installed_modules.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using namespace Kedrin::ModTool;
using build_test::Result;
using build_test::run;

class AddCommand : public testing::Test
{
protected:
    void SetUp() override { ::setenv("XDG_DATA_HOME", m_home.file("data").c_str(), 1); }
    void TearDown() override { ::unsetenv("XDG_DATA_HOME"); }

    std::string source(const std::string& name, const std::string& text = "Gen\t1\t1\tБог\n") const
    {
        std::ofstream(m_home.file(name)) << text;
        return m_home.file(name);
    }

    static std::string bibles() { return ownModulesFolder(); }

    /// The module folders, without the file that they share.
    static std::vector<std::string> folders()
    {
        std::vector<std::string> names = build_test::namesIn(bibles());
        std::erase(names, "BibleStructure.txt");
        return names;
    }

    static std::string added(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> all = {"add"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Result result = run(all);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.code, 0);
        return result.out;
    }

    /// The standard error of a refused add command.
    static std::string refused(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> all = {"add"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Result result = run(all);
        EXPECT_EQ(result.code, 1);
        EXPECT_EQ(result.out, "");
        return result.err;
    }

    /// A module of the system and the launcher's link to it.
    std::string linkToSystemModule(const std::string& name) const
    {
        const std::string system = m_home.file("usr/" + name);
        EXPECT_EQ(run({"build", source("system.txt"), system, "-q"}).code, 0);
        fs::create_directories(bibles());
        fs::create_directory_symlink(system, bibles() + '/' + name);
        return system;
    }

    test_support::TempFolder m_home;
};

using Names = std::vector<std::string>;

TEST_F(AddCommand, BuildsTheUsersOwnModule)
{
    const std::string out = added({source("Моят превод.txt")});
    EXPECT_TRUE(out.starts_with("module        " + bibles() + "/моят-превод\ntitle         Моят превод\n"))
        << out;
    EXPECT_TRUE(
        out.ends_with("\nadded         моят-превод; the next time Kedrin is started, its menu \"Преводи\" "
                      "lists this translation\n"))
        << out;
    EXPECT_EQ(folders(), Names{"моят-превод"});
    EXPECT_EQ(run({"show", "моят-превод", "Gen 1:1"}).out, "Бит 1:1  Бог\n");
}

TEST_F(AddCommand, NameIsGivenOrThatOfTheSource)
{
    added({source("King_James (1769).vpl"), "-q"});
    added({source("a.b.txt"), "-q"});
    added({source("x.txt"), "--as", "Моят превод", "-q"});
    fs::create_directories(m_home.file("Web.Bible"));
    source("Web.Bible/genesis.txt", "1:1 a\n");
    added({m_home.file("Web.Bible/"), "-q"});
    added({source("-.txt", "# title: Заглавие\nGen\t1\t1\tБог\n"), "-q"});
    EXPECT_EQ(folders(), (Names{"a-b", "king-james-1769", "web-bible", "Моят превод", "заглавие"}));
}

TEST_F(AddCommand, TitleIsGivenOrTheSources)
{
    EXPECT_NE(added({source("my.txt"), "--title", "Нов превод"}).find("\ntitle         Нов превод\n"),
              std::string::npos);
}

TEST_F(AddCommand, NameThatIsTakenIsRefusedOrReplaced)
{
    const std::string my = source("my.txt");
    added({my});
    const auto before = build_test::filesOf(bibles() + "/my");
    source("my.txt", "Gen\t1\t1\tДруг\n");
    EXPECT_EQ(
        refused({my}),
        "kedrin-module: a module named \"my\" is already installed; choose another name, or replace it\n");
    EXPECT_EQ(build_test::filesOf(bibles() + "/my"), before);
    EXPECT_NE(added({my, "--replace"}).find("\nreplaced      my; "), std::string::npos);
    EXPECT_EQ(run({"show", "my", "Gen 1:1"}).out, "Бит 1:1  Друг\n");
}

TEST_F(AddCommand, FirstIsListedFirst)
{
    added({source("b.txt"), "-q"});
    const std::string out = added({source("c.txt"), "--first"});
    EXPECT_TRUE(out.starts_with("module        " + bibles() + "/!c\n")) << out;
    EXPECT_TRUE(
        out.ends_with("\nadded         c; the next time Kedrin is started, it opens this translation\n"));
    EXPECT_EQ(run({"list"}).out, "c  c\nb  b\n");
    added({source("a.txt"), "--first", "-q"});
    EXPECT_EQ(folders(), (Names{"!a", "b", "c"}));
    added({source("c.txt"), "--first", "--replace", "-q"});
    added({source("c.txt"), "--replace", "-q"}); // remains the first
    EXPECT_EQ(folders(), (Names{"!c", "a", "b"}));
}

TEST_F(AddCommand, SystemsModuleOfThatNameStaysAsItIs)
{
    const std::string system = linkToSystemModule("kjv");
    const auto before = build_test::filesOf(system);
    EXPECT_NE(refused({source("kjv.txt", "Gen\t1\t1\tСвой\n")}).find("already installed"), std::string::npos);
    EXPECT_NE(added({source("kjv.txt", "Gen\t1\t1\tСвой\n"), "--replace"}).find("\nadded         kjv; "),
              std::string::npos);
    EXPECT_EQ(build_test::filesOf(system), before);
    EXPECT_FALSE(fs::is_symlink(bibles() + "/kjv"));
    EXPECT_EQ(run({"show", "kjv", "Gen 1:1"}).out, "Бит 1:1  Свой\n");
    EXPECT_EQ(folders(), Names{"kjv"});
}

TEST_F(AddCommand, LinkStaysWhereTheSourceIsRefused)
{
    linkToSystemModule("kjv");
    EXPECT_NE(refused({source("kjv.txt", "Gen\tx\t1\tСвой\n"), "--replace"}), "");
    EXPECT_TRUE(fs::is_symlink(bibles() + "/kjv"));
    EXPECT_EQ(folders(), Names{"kjv"});
}

TEST_F(AddCommand, NamesThatWouldHarmAreRefused)
{
    const std::string my = source("my.txt");
    for (const std::string name :
         {"", ".", "..", "../x", "/x", ".my", "!my", "a\nb", "BibleStructure.txt", "\xFF"})
        EXPECT_NE(refused({my, "--as", name}).find(" cannot be the name of a module\n"), std::string::npos)
            << name;
    EXPECT_NE(refused({my, "--as", std::string(201, 'a')}).find(" cannot be the name"), std::string::npos);
    EXPECT_EQ(refused({my, "--as", "!my"}), "kedrin-module: \"!my\" cannot be the name of a module\n");
    EXPECT_FALSE(fs::exists(bibles()));
    added({my, "--as", std::string(200, 'a'), "-q"});
}

TEST_F(AddCommand, RefusedSourceLeavesNothing)
{
    EXPECT_NE(refused({source("my.txt", "Gen\t1\t1\tБог\nGen\tx\t2\tа\n")}), "");
    EXPECT_NE(refused({m_home.file("absent.txt")}), "");
    EXPECT_FALSE(fs::exists(bibles()));
}

TEST_F(AddCommand, CharactersThatCannotBeKeptAreReplacedAndReported)
{
    const std::string out = added({source("my.txt", "Gen\t1\t1\tкафе\u0301 и много други думи след него\n")});
    EXPECT_NE(out.find("\nreplaced      "), std::string::npos) << out;
}

TEST_F(AddCommand, TextInAnotherScriptIsRefused)
{
    const std::string refusal = refused({source("el.txt", "Gen\t1\t1\tΕν αρχη εποιησεν\n")});
    EXPECT_EQ(refusal, "kedrin-module: 14 of 14 letters have no equivalent in Windows-1251\n");
    EXPECT_EQ(folders(), Names());
}

TEST_F(AddCommand, FolderThatCannotBeMadeIsSaidWithWhatToDo)
{
    std::ofstream(m_home.file("data")) << "a file";
    EXPECT_EQ(
        refused({source("my.txt")}),
        "kedrin-module: " + bibles() +
            ": cannot be created (Not a directory); set XDG_DATA_HOME to a folder that you can write to\n");
}

TEST_F(AddCommand, QuietSaysNothing) { EXPECT_EQ(added({source("my.txt"), "-q"}), ""); }

} // namespace
