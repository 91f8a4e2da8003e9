// Each check of a module fails for a module for which no other check fails.

#include "check_defects.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace check_test;
using namespace Kedrin::ModTool;
using namespace std::string_literals;
using test_support::cp1251;
using test_support::smallModule;

const std::string god = cp1251("Бог"), earth = cp1251("земя"), said = cp1251("рече");

TEST(CheckFindings, NothingIsWrongWithTheSmallModule)
{
    EXPECT_EQ(findingsOf(smallModule()), std::vector<std::string>());
    EXPECT_EQ(findingsOf(withVerses({"Бог рече", "земя", "рече Бог", ""})), std::vector<std::string>());
    EXPECT_EQ(findingsOf(withWords({{god, {1, 3}}, {earth, {2}}, {said, {1, 3}}})),
              std::vector<std::string>());
}

TEST(CheckFindings, EachDefectTripsItsCheckAlone)
{
    for (const Defect& defect : allDefects())
        EXPECT_EQ(findingsOf(defect.files), std::vector<std::string>{defect.finding});
}

TEST(CheckFindings, EachCheckOfAModuleHasItsDefect)
{
    std::set<std::string, std::less<>> tripped = {"size-limit"}; // has a separate test
    for (const Defect& defect : allDefects())
        tripped.insert(defect.finding.substr(0, defect.finding.find(' ')));
    for (const Check& check : checkTable().first(static_cast<std::size_t>(CheckID::globalStructureMissing)))
        EXPECT_TRUE(tripped.contains(check.id)) << check.id;
}

TEST(CheckFindings, WellKnownMarkupIsSound)
{
    EXPECT_EQ(
        findingsOf(withFirstVerse("<b>Бо<i>г</i></b><br>ре&#1095;&#x435; &quot;&lt;&gt;&amp;&nbsp;<br/>")),
        std::vector<std::string>());
}

TEST(CheckFindings, WordsOfVersesThatCannotBeReadAreNotJudged)
{
    ModuleFiles files = withWords({{god, {1, 3, 4}}, {earth, {2}}, {said, {1, 3}}});
    files.bytes["CompactPoint.bin"].replace(12, 4, littleEndian(1000, 4));
    EXPECT_EQ(findingsOf(files), std::vector<std::string>{"text-offset (1): Exod 1:1: 1000 / 28"});
}

TEST(CheckFindings, BytesOfADefectAreSafeToPrint)
{
    EXPECT_EQ(shownBytes("a\x1B[31m\x7F\xC1\0"s), "a\\x1B[31m\\x7FБ\\x00");
    EXPECT_EQ(shownBytes(std::string(41, 'x')), std::string(40, 'x') + "...");
    EXPECT_EQ(shownPath("/a\n/б"), "/a\\x0A/б");
}

} // namespace
