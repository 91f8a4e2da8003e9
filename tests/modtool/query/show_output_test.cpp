// How `show` writes verses: broken lines, lists of references, formats for other programs.

#include "query_fixture.h"

#include <gtest/gtest.h>

using namespace query_test;
using test_support::ModuleFiles;

namespace {

class ShowOutput : public testing::Test
{
protected:
    Modules m_modules;
    std::string m_bulgarian = m_modules.add("bg", bulgarianModule());
    std::string m_english = m_modules.add("en", englishModule());
};

} // namespace

TEST_F(ShowOutput, ListOfReferences)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Бит 2:1;", "1:2"}),
              (Result{0, "Бит 2:1  И стана ден.\nБит 1:2  И Бог рече: <Да бъде>.\n", ""}));
    EXPECT_EQ(run({"show", m_bulgarian, "Бит 2:1,2"}).out,
              "Бит 2:1  И стана ден.\nБит 2:2  Бог видя деня.\n");
}

TEST_F(ShowOutput, LinesAreBrokenBelowTheText)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Бит 1:2", "--width", "23"}).out,
              "Бит 1:2  И Бог рече:\n         <Да бъде>.\n");
    EXPECT_EQ(run({"show", m_bulgarian, "Бит 1:2", "--width", "20"}).out,
              "Бит 1:2  И Бог рече:\n         <Да бъде>.\n");
}

TEST_F(ShowOutput, MarkdownIsAParagraphForEachVerse)
{
    EXPECT_EQ(
        run({"show", m_bulgarian, "Бит 1:2; 2:1", "--format", "markdown"}),
        (Result{0, "# Пробен превод\n\n**Бит 1:2** И Бог рече: \\<Да бъде\\>.\n\n**Бит 2:1** И стана ден.\n",
                ""}));
}

TEST_F(ShowOutput, MarkdownTextStaysText)
{
    const ModuleFiles files =
        test_support::makeModule("A *title*", {{0, "Gen", {{"a|b &amp; `c` _d_ [e] #f \\g"}}}});
    EXPECT_EQ(run({"show", m_modules.add("odd", files), "Gen 1", "--format", "markdown"}).out,
              "# A \\*title\\*\n\n**Gen 1:1** a\\|b &amp; \\`c\\` \\_d\\_ \\[e\\] \\#f \\\\g\n");
}

TEST_F(ShowOutput, HtmlIsADocument)
{
    EXPECT_EQ(
        run({"show", m_bulgarian, "Бит 1:2", "--format", "html"}).out,
        "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>Пробен "
        "превод</title>\n</head>\n<body>\n"
        "<h1>Пробен превод</h1>\n<p><b>Бит 1:2</b> И Бог рече: &lt;Да бъде&gt;.</p>\n</body>\n</html>\n");
}

TEST_F(ShowOutput, SeveralModulesAreATable)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Йона 2:1-2", "--with", m_english, "--format", "markdown"}).out,
              "| Пробен превод | English |\n|---|---|\n"
              "| **Йон 2:1** Но Господ определи риба. |  |\n"
              "| **Йон 2:2** И Йона се помоли. | **Jon 2:1** Then Jonah prayed. |\n");
    EXPECT_EQ(run({"show", m_bulgarian, "Йона 2:1-2", "--with", m_english, "--format", "html"}).out,
              "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>Пробен "
              "превод</title>\n</head>\n<body>\n"
              "<table>\n<tr><th>Пробен превод</th><th>English</th></tr>\n"
              "<tr><td><b>Йон 2:1</b> Но Господ определи риба.</td><td></td></tr>\n"
              "<tr><td><b>Йон 2:2</b> И Йона се помоли.</td><td><b>Jon 2:1</b> Then Jonah prayed.</td></tr>\n"
              "</table>\n</body>\n</html>\n");
}

TEST_F(ShowOutput, JsonHasARowForEachPosition)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Йона 2:1", "--with", m_english, "--format", "json"}).out,
              "{\n  \"modules\": [\n    {\n      \"folder\": \"" + m_bulgarian +
                  "\",\n      \"title\": \"Пробен превод\"\n    },\n    {\n      \"folder\": \"" + m_english +
                  "\",\n      \"title\": \"English\"\n    }\n  ],\n  \"rows\": [\n    [\n      {\n"
                  "        \"reference\": \"Йон 2:1\",\n"
                  "        \"local\": {\n          \"book\": 2,\n          \"chapter\": 2,\n          "
                  "\"verse\": 1\n        },\n"
                  "        \"common\": {\n          \"book\": 32,\n          \"osis\": \"Jonah\",\n"
                  "          \"chapter\": 2,\n          \"verse\": 0\n        },\n"
                  "        \"text\": \"Но Господ определи риба.\"\n      },\n      null\n    ]\n  ]\n}\n");
}

TEST_F(ShowOutput, UnknownFormatIsAUsageError)
{
    EXPECT_EQ(run({"show", m_bulgarian, "Бит 1", "--format", "pdf"}).code, 2);
}
