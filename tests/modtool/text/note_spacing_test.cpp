// Spaces where a note was removed.

#include "note_spacing.h"

#include <gtest/gtest.h>

namespace {

using Kedrin::ModTool::needsSpaceBetween;

TEST(WordGap, WordsDoNotRunTogether)
{
    EXPECT_TRUE(needsSpaceBetween("едно", "две"));
    EXPECT_TRUE(needsSpaceBetween("едно,", "2"));
    EXPECT_TRUE(needsSpaceBetween("едно", "(две"));
    EXPECT_FALSE(needsSpaceBetween("", "две"));
    EXPECT_FALSE(needsSpaceBetween("едно ", "две"));
    EXPECT_FALSE(needsSpaceBetween("(", "две"));
    EXPECT_FALSE(needsSpaceBetween("едно", ", две"));
    EXPECT_FALSE(needsSpaceBetween("едно", " две"));
    EXPECT_FALSE(needsSpaceBetween("едно", ""));
}

TEST(WordGap, MarkThatClosesAQuotationStandsAtItsWord)
{
    EXPECT_FALSE(needsSpaceBetween("„Да бъде светлина.", "“"));
    EXPECT_FALSE(needsSpaceBetween("„Да бъде светлина.", "“ И стана"));
    EXPECT_FALSE(needsSpaceBetween("„Да бъде светлина.", "“И стана")) << "even where a blank is missing";
    EXPECT_FALSE(needsSpaceBetween("‚Es werde Licht!", "‘"));
    EXPECT_FALSE(needsSpaceBetween("»Es werde Licht!", "«"));
    EXPECT_FALSE(needsSpaceBetween("«Да будет свет»", "»")) << "of a quotation in a quotation";
    EXPECT_FALSE(needsSpaceBetween("“Let there be light", "”"));
    EXPECT_FALSE(needsSpaceBetween("светлина.", "“ И")) << "opened in the verse before";
}

TEST(WordGap, MarkThatOpensAQuotationStandsApart)
{
    EXPECT_TRUE(needsSpaceBetween("And God said,", "“Let"));
    EXPECT_TRUE(needsSpaceBetween("said, “Yes.” Then:", "“Let"));
    EXPECT_TRUE(needsSpaceBetween("И рече:", "„Да"));
    EXPECT_TRUE(needsSpaceBetween("„А“ и", "„Б"));
    EXPECT_TRUE(needsSpaceBetween("„А“ и", "“Б"));
    EXPECT_TRUE(needsSpaceBetween("сказал:", "«Да"));
    EXPECT_TRUE(needsSpaceBetween("«А» и", "«Б"));
    EXPECT_TRUE(needsSpaceBetween("край.» И рече:", "«Б")) << "the first was opened in the verse before";
    EXPECT_TRUE(needsSpaceBetween("sprach:", "»Es"));
    EXPECT_TRUE(needsSpaceBetween("said:", "“")) << "alone: by its usual meaning";
}

TEST(WordGap, NothingStandsBehindAnOpeningMark)
{
    EXPECT_FALSE(needsSpaceBetween("И рече: „", "Да"));
    EXPECT_FALSE(needsSpaceBetween("said, “", "Let"));
    EXPECT_FALSE(needsSpaceBetween("said—“", "Let"));
    EXPECT_FALSE(needsSpaceBetween("“", "Let"));
    EXPECT_FALSE(needsSpaceBetween("sprach: »", "Es"));
    EXPECT_FALSE(needsSpaceBetween("said, (‘", "Let"));
}

TEST(WordGap, BehindAClosingMarkAWordStandsApart)
{
    EXPECT_TRUE(needsSpaceBetween("„Да бъде светлина.“", "И"));
    EXPECT_TRUE(needsSpaceBetween("светлина.“", "И")) << "opened in the verse before";
    EXPECT_TRUE(needsSpaceBetween("“Light.”", "And"));
    EXPECT_TRUE(needsSpaceBetween("»Licht.«", "Und"));
    EXPECT_TRUE(needsSpaceBetween("(едно)", "две"));
}

TEST(WordGap, ApostropheIsNotAQuotationMark)
{
    EXPECT_FALSE(needsSpaceBetween("Lord", "’s"));
    EXPECT_FALSE(needsSpaceBetween("„geht’s gut", "“"));
}

TEST(WordGap, InvalidUtf8IsTolerated)
{
    EXPECT_FALSE(needsSpaceBetween("\xD0", "\xD0"));
    EXPECT_TRUE(needsSpaceBetween("\xD0\xFF", "a"));
}

} // namespace
