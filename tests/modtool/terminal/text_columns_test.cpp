#include "text_columns.h"

#include <gmock/gmock.h>

#include <sstream>

namespace {

using namespace Kedrin::ModTool;
using testing::ElementsAre;

TEST(TextColumns, CharactersAreCountedNotBytes)
{
    EXPECT_EQ(charactersIn("Бог и"), 5u);
    EXPECT_EQ(padded("Бог", 5), "Бог  ");
    EXPECT_EQ(padded("Бог", 2), "Бог");
}

TEST(TextColumns, LinesAreBrokenAtBlanks)
{
    EXPECT_THAT(brokenLines("в начало Бог", 8), ElementsAre("в начало", "Бог"));
    EXPECT_THAT(brokenLines("в начало Бог", 7), ElementsAre("в", "начало", "Бог"));
    EXPECT_THAT(brokenLines("в начало Бог", 12), ElementsAre("в начало Бог"));
    EXPECT_THAT(brokenLines("", 5), ElementsAre(""));
    EXPECT_THAT(brokenLines("abcd ", 4), ElementsAre("abcd")) << "no empty line after the last blank";
}

TEST(TextColumns, LongWordIsBrokenAnywhere)
{
    EXPECT_THAT(brokenLines("началото е", 5), ElementsAre("начал", "ото е"));
    EXPECT_THAT(brokenLines(" abcdef", 3), ElementsAre(" ab", "cde", "f"));
}

TEST(TextColumns, AnyMeasureMayLimitALine)
{
    const auto threeBytes = [](std::string_view text) { return std::min<std::size_t>(text.size(), 3); };
    EXPECT_THAT(brokenLines("ab cd efgh", threeBytes), ElementsAre("ab", "cd", "efg", "h"));
}

TEST(TextColumns, CellsStandSideBySide)
{
    std::ostringstream out;
    const CTextColumns columns(2, 23);
    columns.writeRow(out, {"в началото Бог", "In the"});
    columns.writeRule(out);
    EXPECT_EQ(out.str(), "в началото | In the\n"
                         "Бог        |\n"
                         "-----------+-----------\n");
}

} // namespace
