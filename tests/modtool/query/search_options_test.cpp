// What `search` finds and shows with each of its options; expressions need the program with all commands.

#include "build_fixture.h"
#include "errors.h"
#include "query_fixture.h"
#include "regex_matcher.h"
#include "thrown.h"

#include <gtest/gtest.h>

using namespace query_test;
using namespace Kedrin::ModTool;
using Spans = std::vector<TextSpan>;

namespace {

/// Битие 1:1 and so on: "Бог видя светлината.", "Тъмнина и светлина.", "И Бог каза.", "".
class SearchOptions : public testing::Test
{
protected:
    SearchOptions()
    {
        m_module = m_modules.add(
            "m", test_support::makeModule(
                     "m", {{0,
                            "Битие",
                            {{"Бог видя светлината.", "Тъмнина и светлина."}, {"И <b>Бог</b> каза.", ""}}}}));
    }

    std::string found(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"search", m_module});
        return build_test::run(arguments).out;
    }

    Modules m_modules;
    std::string m_module;
};

} // namespace

TEST_F(SearchOptions, AllWordsInAnyOrder)
{
    EXPECT_EQ(found({"--all-words", "светлина", "тъмнина"}), "Бит 1:2  Тъмнина и светлина.\n1 verse\n");
    EXPECT_EQ(found({"--all-words", "светлина", "бог"}), "Бит 1:1  Бог видя светлината.\n1 verse\n");
    EXPECT_EQ(found({"--all-words", "--case", "Бог", "видя"}), "Бит 1:1  Бог видя светлината.\n1 verse\n");
    EXPECT_EQ(found({"--all-words", "бог", "тъмнина"}), "0 verses\n");
}

TEST_F(SearchOptions, RangeLeavesOtherPassagesOut)
{
    EXPECT_EQ(found({"--count", "бог"}), "2\n");
    EXPECT_EQ(found({"--range", "Бит 2", "бог"}), "Бит 2:1  И Бог каза.\n1 verse\n");
    EXPECT_EQ(found({"--range", "Бит 1:2; 2:2", "бог"}), "0 verses\n");
    EXPECT_EQ(build_test::run({"search", m_module, "бог", "--range", "Бит 9"}).err,
              "kedrin-module: Бит has 2 chapters; there is no chapter 9\n");
}

TEST_F(SearchOptions, LimitSaysHowManyThereAre)
{
    EXPECT_EQ(found({"--limit", "1", "бог"}), "Бит 1:1  Бог видя светлината.\n2 verses; 1 shown\n");
    EXPECT_EQ(found({"--limit", "2", "бог"}),
              "Бит 1:1  Бог видя светлината.\nБит 2:1  И Бог каза.\n2 verses\n");
    EXPECT_EQ(build_test::run({"search", m_module, "бог", "--limit", "0"}).code, 2);
}

TEST_F(SearchOptions, ExpressionMatchesTheTextWithoutMarkup)
{
    EXPECT_EQ(found({"--regex", "^и бог"}), "Бит 2:1  И Бог каза.\n1 verse\n");
    EXPECT_EQ(found({"--regex", "--case", "^и бог"}), "0 verses\n");
    EXPECT_EQ(found({"--regex", "\\bсветлина\\b"}), "Бит 1:2  Тъмнина и светлина.\n1 verse\n");
    EXPECT_EQ(found({"--regex", "^$"}), "Бит 2:2  \n1 verse\n");
}

TEST_F(SearchOptions, WrongExpressionIsSaid)
{
    EXPECT_EQ(build_test::run({"search", m_module, "--regex", "а("}).err,
              "kedrin-module: \"а(\" is not a regular expression (at character 2)\n");
    EXPECT_EQ(test_support::messageOf<CNotFound>(
                  [] { makeRegexMatcher("(a+)+$", true)->matches(std::string(200, 'a') + 'b'); }),
              "the expression takes too long");
}

TEST_F(SearchOptions, ExpressionGoesWithoutTheOtherWaysToMatch)
{
    EXPECT_EQ(build_test::run({"search", m_module, "--regex", "--whole-word", "а"}).code, 2);
    EXPECT_EQ(build_test::run({"search", m_module, "--regex", "--all-words", "а"}).code, 2);
}

TEST_F(SearchOptions, WhatIsFoundStandsOutWhereColoursAreWanted)
{
    EXPECT_EQ(found({"--color", "always", "бог"}), "Бит 1:1  \x1b[1;31mБог\x1b[m видя светлината.\n"
                                                   "Бит 2:1  И \x1b[1;31mБог\x1b[m каза.\n2 verses\n");
    EXPECT_EQ(found({"--color", "always", "--regex", "свет\\w+"}),
              "Бит 1:1  Бог видя \x1b[1;31mсветлината\x1b[m.\n"
              "Бит 1:2  Тъмнина и \x1b[1;31mсветлина\x1b[m.\n2 verses\n");
    EXPECT_EQ(found({"--color", "always", "--all-words", "светлина", "тъмнина"}),
              "Бит 1:2  \x1b[1;31mТъмнина\x1b[m и \x1b[1;31mсветлина\x1b[m.\n1 verse\n");
    EXPECT_EQ(found({"бог", "--limit", "1"}).find('\x1b'), std::string::npos);
}

TEST(TextMatcher, FindsWordsWithTheirBytes)
{
    EXPECT_EQ(makeWordMatcher({"бог"}, false, false)->matches("Бог и бог"), (Spans{{0, 6}, {10, 16}}));
    EXPECT_EQ(makeWordMatcher({"бог"}, true, false)->matches("Бог и бог"), (Spans{{10, 16}}));
    EXPECT_EQ(makeWordMatcher({"бог"}, false, true)->matches("Бога, бог"), (Spans{{10, 16}}));
    EXPECT_EQ(makeWordMatcher({"a", "ab"}, false, false)->matches("aab"), (Spans{{0, 1}, {1, 3}}));
    EXPECT_EQ(makeWordMatcher({""}, false, false)->matches("abc"), Spans());
    EXPECT_EQ(makeRegexMatcher("\\U0001F600.", true)->matches("x\U0001F600y"), (Spans{{1, 6}}));
}
