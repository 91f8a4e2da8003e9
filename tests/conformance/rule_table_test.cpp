#include "rule_table.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace conformance;
using Texts = std::vector<std::string>;

namespace {

const Tests known = {
    {"a_tests", {"A.First", "A.Second"}}, {"b_tests", {"B.Only"}}, {"p_tests", {"P.X/0", "P.X/1"}}};

Texts faultsIn(const std::string& text) { return faultsOf(parseRules(text), known); }

} // namespace

TEST(RuleTable, HasAnAreaARuleAndTestsALine)
{
    const std::vector<Rule> rules = parseRules("# title\n\narea\ta rule\tA.First  A.Second\n");
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0].area, "area");
    EXPECT_EQ(rules[0].sentence, "a rule");
    EXPECT_EQ(rules[0].tests, (Texts{"A.First", "A.Second"}));
}

TEST(RuleTable, OtherThanThreeColumnsAreNamed)
{
    for (const char* text : {"x\ty\tA.First\narea\trule\n", "x\ty\tA.First\na\tb\tc\td\n"}) {
        try {
            parseRules(text);
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& ex) {
            EXPECT_EQ(std::string(ex.what()).substr(0, 7), "line 2 ");
        }
    }
}

TEST(RuleTable, SoundRulesHaveNoFault) { EXPECT_EQ(faultsIn("x\tone\tA.First\ny\tone\tP.X/*\n"), Texts{}); }

TEST(RuleTable, WithoutAnyRuleIsAFault) { EXPECT_EQ(faultsIn("# nothing\n"), Texts{"there is no rule"}); }

TEST(RuleTable, RuleWithoutTestIsAFault)
{
    EXPECT_EQ(faultsIn("x\tone\t\n"), Texts{"without a test: x: one"});
}

TEST(RuleTable, RuleToldTwiceIsAFault)
{
    EXPECT_EQ(faultsIn("x\tone\tA.First\nx\tone\tB.Only\n"), Texts{"told twice: x: one"});
}

TEST(RuleTable, TestThatTheBuildLacksIsAFault)
{
    EXPECT_EQ(faultsIn("x\tone\tA.First A.Third\n"), Texts{"no test A.Third: x: one"});
    EXPECT_EQ(faultsIn("x\tone\tQ.*\n"), Texts{"no test Q.*: x: one"});
}

TEST(RuleTable, TestsOfNamedProgramsWithoutRuleAreTold)
{
    EXPECT_EQ(testsWithoutRule(parseRules("x\tone\tA.First P.X/*\n"), known), Texts{"A.Second"});
}

TEST(RuleTable, IsPrintedByArea)
{
    EXPECT_EQ(printed(parseRules("x\tone\tA.First\ny\ttwo\tP.X/*\nx\tthree\tA.First B.Only\n"), known),
              "x: 2 rules, 2 tests\n"
              "  one\n      A.First\n"
              "  three\n      A.First\n      B.Only\n"
              "y: 1 rules, 2 tests\n"
              "  two\n      P.X/*\n"
              "all: 3 rules, 4 tests\n");
}
