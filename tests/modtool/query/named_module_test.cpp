// Commands with the names of modules installed for the user.

#include "query_fixture.h"
#include "temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace {

using namespace query_test;

class NamedModule : public testing::Test
{
protected:
    void SetUp() override
    {
        ::setenv("XDG_DATA_HOME", m_home.path().c_str(), 1);
        std::filesystem::create_directories(bibles());
        std::filesystem::create_directory_symlink(m_modules.add("first", bulgarianModule()),
                                                  bibles() + "/link");
        std::filesystem::copy(m_modules.path("first"), bibles() + "/my");
        std::filesystem::copy(m_modules.add("second", englishModule()), bibles() + "/!en");
    }
    void TearDown() override { ::unsetenv("XDG_DATA_HOME"); }

    std::string bibles() const { return m_home.file("kedrin/modules/bibles"); }

    test_support::TempFolder m_home;
    Modules m_modules;
};

TEST_F(NamedModule, IsListedWithItsTitleInTheReadersOrder)
{
    EXPECT_EQ(run({"list"}), (Result{0,
                                     "en    English\n"
                                     "link  Пробен превод (installed for all users)\n"
                                     "my    Пробен превод\n",
                                     ""}));
}

TEST_F(NamedModule, WithoutATitleIsListedByItsFolder)
{
    std::filesystem::copy(m_modules.path("first"), bibles() + "/моят");
    std::filesystem::remove(bibles() + "/моят/_Info_.txt");
    EXPECT_NE(run({"list"}).out.find("\nмоят  моят\n"), std::string::npos);
}

TEST_F(NamedModule, ControlCharactersOfItsNameAreShownAsNumbers)
{
    const std::string name = "a\x1B[31m\nb", shown = "a\\x1B[31m\\x0Ab";
    std::filesystem::copy(m_modules.path("first"), bibles() + '/' + name);
    EXPECT_EQ(run({"list"}).out.find("en              English\n" + shown + "  Пробен превод\n"), 0u);
    EXPECT_NE(run({"info", name}).out.find("\nfolder: " + bibles() + '/' + shown + '\n'), std::string::npos);
    EXPECT_EQ(run({"remove", name}), (Result{0, shown + " is removed\n", ""}));
}

TEST_F(NamedModule, IsListedAsJson)
{
    std::filesystem::remove_all(bibles() + "/link");
    std::filesystem::remove_all(bibles() + "/my");
    EXPECT_EQ(run({"list", "--json"}), (Result{0,
                                               "[\n  {\n    \"name\": \"en\",\n    \"title\": \"English\",\n"
                                               "    \"folder\": \"" +
                                                   bibles() + "/!en\",\n    \"own\": true\n  }\n]\n",
                                               ""}));
}

TEST_F(NamedModule, NothingInstalledIsSaid)
{
    std::filesystem::remove_all(bibles());
    EXPECT_EQ(run({"list"}), (Result{0, "no module is installed\n", ""}));
}

TEST_F(NamedModule, IsFoundByEveryCommand)
{
    const std::vector<std::vector<std::string>> lines = {{"show", "my", "Бит 1:1"},
                                                         {"search", "my", "а"},
                                                         {"info", "my"},
                                                         {"words", "my"},
                                                         {"diff", "my", "en", "--count"},
                                                         {"show", "en", "Gen 1:1", "--with", "my"}};
    for (const std::vector<std::string>& line : lines) {
        std::vector<std::string> byPath = line;
        for (std::string& argument : byPath)
            if (argument == "my" || argument == "en")
                argument = bibles() + (argument == "my" ? "/my" : "/!en");
        EXPECT_EQ(run(line), run(byPath)) << line[0];
        EXPECT_EQ(run(line).err, "") << line[0];
    }
}

TEST_F(NamedModule, UnknownNameIsAnsweredWithNamesLikeIt)
{
    EXPECT_EQ(run({"show", "mi", "Бит 1"}),
              (Result{3, "", "kedrin-module: no module is named \"mi\" (did you mean my?)\n"}));
    EXPECT_EQ(run({"info", "absent"}), (Result{3, "", "kedrin-module: no module is named \"absent\"\n"}));
    EXPECT_EQ(run({"info", "./absent"}),
              (Result{3, "", "kedrin-module: ./absent: is not a module folder\n"}));
}

TEST_F(NamedModule, ModuleThatDoesNotComeFirstIsFound)
{
    const auto usage = [](const std::string& what) {
        return Result{2, "", "kedrin-module: " + what + "\nkedrin-module: try kedrin-module --help\n"};
    };
    EXPECT_EQ(run({"show", "Йоан 3:16", "my"}),
              usage("the module comes first: kedrin-module show my 'Йоан 3:16'"));
    EXPECT_EQ(run({"show", "Йоан", "3:16", "my"}),
              usage("the module comes first: kedrin-module show my Йоан 3:16"));
    EXPECT_EQ(run({"show", "Йоан", "3:16"}),
              usage("the module comes first: kedrin-module show en Йоан 3:16"));
    EXPECT_EQ(run({"show", "Йоан 3:16"}), usage("the module comes first: kedrin-module show en 'Йоан 3:16'"));
    EXPECT_EQ(run({"search", "Бог"}), usage("the module comes first: kedrin-module search en Бог"));
    EXPECT_EQ(run({"search", "Бог", "my"}), usage("the module comes first: kedrin-module search my Бог"));
    EXPECT_EQ(run({"search", "my"}), usage("TEXT is required"));
    EXPECT_EQ(run({"show", "my"}), usage("REFERENCE is required"));
    EXPECT_EQ(run({"show", "mi", "1:1"}).err,
              "kedrin-module: no module is named \"mi\" (did you mean my?)\n");
}

TEST_F(NamedModule, IsRemoved)
{
    EXPECT_EQ(run({"remove", "my"}), (Result{0, "my is removed\n", ""}));
    EXPECT_FALSE(std::filesystem::exists(bibles() + "/my"));
    EXPECT_EQ(run({"remove", "my"}).code, 3);
    EXPECT_EQ(
        run({"remove", "link"}),
        (Result{3, "",
                "kedrin-module: \"link\" is not one of your own modules: it lies in " +
                    std::filesystem::canonical(m_modules.path("first")).parent_path().string() + '\n'}));
    EXPECT_TRUE(std::filesystem::exists(m_modules.path("first")));
}

} // namespace
