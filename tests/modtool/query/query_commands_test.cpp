#include "query_fixture.h"

#include "ut_utils.h"

#include <gtest/gtest.h>

using namespace query_test;
using test_support::ModuleFiles;

namespace {

class Commands : public testing::Test
{
protected:
    Modules m_modules;
    std::string m_bulgarian = m_modules.add("bg", bulgarianModule());
    std::string m_english = m_modules.add("en", englishModule());
};

} // namespace

TEST_F(Commands, ShowAVerse)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Битие 1:2"}), (Result{0, "Бит 1:2  И Бог рече: <Да бъде>.\n", ""}));
    EXPECT_EQ(run({"show", m_bulgarian + "/", "gen", "1:2"}),
              (Result{0, "Бит 1:2  И Бог рече: <Да бъде>.\n", ""}));
}

TEST_F(Commands, ShowAChapterWithoutItsMarkup)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Бит", "2"}),
              (Result{0, "Бит 2:1  И стана ден.\nБит 2:2  Бог видя деня.\n", ""}));
}

TEST_F(Commands, ShowSideBySideByTheGlobalNumbering)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Йона", "2", "--with", m_english, "--width", "60"}),
              (Result{0,
                      "Пробен превод                | English\n"
                      "-----------------------------+-----------------------------\n"
                      "Йон 2:1  Но Господ определи  | -\n"
                      "риба.                        |\n"
                      "Йон 2:2  И Йона се помоли.   | Jon 2:1  Then Jonah prayed.\n"
                      "-                            | Jon 2:2  And said.\n",
                      ""}));
}

TEST_F(Commands, ShowOfVersesAlignsJustThose)
{
    EXPECT_EQ(run({"show", m_english, "Jonah 2:1", "--with", m_bulgarian, "--width", "60"}).out,
              "English                      | Пробен превод\n"
              "-----------------------------+-----------------------------\n"
              "Jon 2:1  Then Jonah prayed.  | Йон 2:2  И Йона се помоли.\n");
}

TEST_F(Commands, ShowBesideAModuleThatLacksTheBook)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Юда 3", "--with", m_english, "--width", "60"}).out,
              "Пробен превод                | English\n"
              "-----------------------------+-----------------------------\n"
              "Юда 1:3  Възлюбени!          | -\n");
}

TEST_F(Commands, ShowRefusesWhatItCannotFind)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Битие 3"}),
              (Result{1, "", "kedrin-module: Бит has 2 chapters; there is no chapter 3\n"}));
    EXPECT_EQ(run({"show", m_bulgarian}).code, 2);
    EXPECT_EQ(run({"show", m_bulgarian, "Бит 1", "--width", "5"}).code, 2);
}

TEST_F(Commands, SearchInAnyCaseInsideWords)
{
    EXPECT_EQ(run({"search", m_bulgarian, "ГОСПОД"}),
              (Result{0,
                      "Йон 1:1  И Господ рече.\n"
                      "Йон 2:1 [Jonah 2:0]  Но Господ определи риба.\n"
                      "2 verses\n",
                      ""}));
    EXPECT_EQ(run({"search", m_bulgarian, "--part", "бог", "рече"}).out,
              "Бит 1:2  И Бог рече: <Да бъде>.\n1 verse\n");
}

TEST_F(Commands, SearchByCase)
{
    EXPECT_EQ(run({"search", m_bulgarian, "и", "--case", "--count"}), (Result{0, "5\n", ""}));
    EXPECT_EQ(run({"search", m_bulgarian, "И", "--case", "--count"}), (Result{0, "4\n", ""}));
}

TEST_F(Commands, SearchForAWholeWord)
{
    EXPECT_EQ(run({"search", m_bulgarian, "ден", "--whole-word"}),
              (Result{0, "Бит 2:1  И стана ден.\n1 verse\n", ""}));
    EXPECT_EQ(run({"search", m_bulgarian, "ден", "--count"}).out, "2\n");
    EXPECT_EQ(run({"search", m_bulgarian, "де", "--whole-word"}), (Result{1, "0 verses\n", ""}));
}

TEST_F(Commands, SearchAsJson)
{
    EXPECT_EQ(run({"search", m_bulgarian, "риба", "--json"}),
              (Result{0,
                      "{\n"
                      "  \"module\": \"" +
                          m_bulgarian +
                          "\",\n"
                          "  \"text\": \"риба\",\n"
                          "  \"count\": 1,\n"
                          "  \"hits\": [\n"
                          "    {\n"
                          "      \"reference\": \"Йон 2:1\",\n"
                          "      \"local\": {\n"
                          "        \"book\": 2,\n"
                          "        \"chapter\": 2,\n"
                          "        \"verse\": 1\n"
                          "      },\n"
                          "      \"common\": {\n"
                          "        \"book\": 32,\n"
                          "        \"osis\": \"Jonah\",\n"
                          "        \"chapter\": 2,\n"
                          "        \"verse\": 0\n"
                          "      },\n"
                          "      \"text\": \"Но Господ определи риба.\"\n"
                          "    }\n"
                          "  ]\n"
                          "}\n",
                      ""}));
    EXPECT_EQ(
        run({"search", m_bulgarian, "нищо такова", "--json", "--count"}),
        (Result{
            1, "{\n  \"module\": \"" + m_bulgarian + "\",\n  \"text\": \"нищо такова\",\n  \"count\": 0\n}\n",
            ""}));
}

TEST_F(Commands, SearchTakesTheReplacementsOfABuild)
{
    EXPECT_EQ(
        run({"search", m_bulgarian, "\u0441\u0435 \u043F\u043E\u043C\u043E\u043B\u045D", "--count"}).out,
        "1\n");
    EXPECT_EQ(
        run({"search", m_bulgarian, "\u6F22"}),
        (Result{1, "",
                "kedrin-module: no module can contain \"\u6F22\" (U+6F22 CJK UNIFIED IDEOGRAPH-6F22)\n"}));
}

TEST_F(Commands, SearchRefusesCombinations)
{
    EXPECT_EQ(run({"search", m_bulgarian, "ден", "--whole-word", "--case"}),
              (Result{2, "",
                      "kedrin-module: --whole-word ignores case, so it cannot be combined with --case\n"
                      "kedrin-module: try kedrin-module --help\n"}));
    EXPECT_EQ(run({"search", m_bulgarian, "ден", "--whole-word", "--part"}).code, 2);
    EXPECT_EQ(run({"search", m_bulgarian, ""}).err,
              "kedrin-module: the text to search for is empty\nkedrin-module: try kedrin-module --help\n");
}

TEST_F(Commands, Words)
{
    EXPECT_EQ(run({"words", m_english}).out,
              "a\nAnd\nbeginning\nBut\ncreated\nday\nfish\nGod\nIn\nJonah\nLORD\n"
              "prayed\nprepared\nsaid\nspoke\nthe\nThen\n"
              "there\nwas\nworld\n");
}

TEST_F(Commands, WordsThatStartWithAPrefix)
{
    EXPECT_EQ(run({"words", m_bulgarian, "БОГ", "--counts"}), (Result{0, "Бог\t3\n", ""}));
    EXPECT_EQ(run({"words", m_bulgarian, "де", "--counts"}), (Result{0, "ден\t1\nденя\t1\n", ""}));
    EXPECT_EQ(run({"words", m_bulgarian, "щ"}), (Result{1, "", ""}));
}

TEST_F(Commands, Info)
{
    ModuleFiles files = test_support::smallModule();
    const std::string path = m_modules.add("small", files);
    EXPECT_EQ(run({"info", path}),
              (Result{0,
                      "Малък превод\nshort title: Малък\nabbreviation: МП\nfolder: " + path +
                          "\n"
                          "copyright: Свободен текст\n"
                          "2 books, 3 chapters, 4 verses (1 empty), 3 words, 245 bytes\n"
                          "numbering: 0 verses have a different number in the global numbering, 0 have none; "
                          "4 verses map correctly both ways\n"
                          "Gen\tБит\tБитие\t2\t3\n"
                          "Exod\tИзх\tИзход\t1\t1\n",
                      ""}));
}

TEST_F(Commands, InfoCountsTheNumbering)
{
    EXPECT_NE(
        run({"info", m_bulgarian})
            .out.find("numbering: 2 verses have a different number in the global numbering, 1 have none; 10 "
                      "verses map correctly both ways\n"),
        std::string::npos);
    const std::string json = run({"info", m_bulgarian, "--json"}).out;
    EXPECT_NE(json.find("\"numbering\": {\n    \"moved\": 2,\n    \"outside\": 1,\n    \"kept\": 10\n  }"),
              std::string::npos)
        << json;
    EXPECT_NE(json.find("\"_Info_.txt\": 45"), std::string::npos) << json;
}

TEST_F(Commands, DiffOfTheSame)
{
    EXPECT_EQ(run({"diff", m_bulgarian, m_bulgarian}),
              (Result{0, "0 verses differ, 0 only in the first, 0 only in the second, 10 the same\n", ""}));
}

TEST_F(Commands, DiffByTheGlobalNumbering)
{
    const std::string other = m_modules.add(
        "other", test_support::makeModule(
                     "Друг", {{0, "Битие", {{"В начало Бог създаде света."}}},
                              {31, "Йона", {{"И Господ рече."}, {"И Йона се помоли!", "Край."}}}}));
    EXPECT_EQ(run({"diff", m_bulgarian, other}),
              (Result{1,
                      "Бит 1:2\n- И Бог рече: <Да бъде>.\n"
                      "Бит 2:1\n- И стана ден.\n"
                      "Бит 2:2\n- Бог видя деня.\n"
                      "Йон 2:1\n- Но Господ определи риба.\n"
                      "Йон 2:2 | Йон 2:1\n- И Йона се помоли.\n+ И Йона се помоли!\n"
                      "Йон 2:2\n+ Край.\n"
                      "Юда 1:1\n- Юда, слуга.\n"
                      "Юда 1:2\n- Милост и мир.\n"
                      "Юда 1:3\n- Възлюбени!\n"
                      "1 verse differs, 7 only in the first, 1 only in the second, 2 the same\n",
                      ""}));
    EXPECT_EQ(run({"diff", other, m_bulgarian, "--count"}).out,
              "1 verse differs, 1 only in the first, 7 only in the second, 2 the same\n");
}

TEST_F(Commands, InfoListsVersesWithoutText)
{
    const std::string module =
        m_modules.add("gaps", test_support::makeModule("m", {{0, "Битие", {{"", "Бог"}, {"ден", ""}}}}));
    EXPECT_EQ(run({"info", "--empty-verses", module}), (Result{0, "Бит 1:1\nБит 2:2\n", ""}));
    EXPECT_EQ(run({"info", "--empty-verses", m_english}), (Result{0, "", ""}));
}
