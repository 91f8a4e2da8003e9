#include "spelling.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Kedrin::ModTool::isLikeSpelling;

TEST(Spelling, OneLetterMayDifferInAShortText)
{
    EXPECT_TRUE(isLikeSpelling("йоан", "йоан"));
    EXPECT_TRUE(isLikeSpelling("йон", "йоан"));
    EXPECT_TRUE(isLikeSpelling("йоаан", "йоан"));
    EXPECT_TRUE(isLikeSpelling("йуан", "йоан"));
    EXPECT_FALSE(isLikeSpelling("йун", "йоан"));
}

TEST(Spelling, TwoLettersMayDifferInALongOne)
{
    EXPECT_TRUE(isLikeSpelling("gensi", "genesis"));
    EXPECT_FALSE(isLikeSpelling("gens", "genesis"));
    EXPECT_FALSE(isLikeSpelling("gnsi", "genesis"));
}

TEST(Spelling, SwappedLettersCountOnce)
{
    EXPECT_TRUE(isLikeSpelling("shwo", "show"));
    EXPECT_TRUE(isLikeSpelling("Мтай", "Матй"));
    EXPECT_EQ(Kedrin::ModTool::lettersMisspelt("serahc", "search"), std::optional<std::size_t>(2));
    EXPECT_FALSE(isLikeSpelling("ohsw", "show"));
}

TEST(Spelling, EmptyAndEndlessTextsAreLikeNone)
{
    EXPECT_FALSE(isLikeSpelling("", "a"));
    const std::string longest(60, 'a');
    EXPECT_TRUE(isLikeSpelling(longest, longest));
    EXPECT_FALSE(isLikeSpelling(longest + 'a', longest + 'a'));
    EXPECT_FALSE(isLikeSpelling("a", std::string(100000, 'a')));
}

} // namespace
