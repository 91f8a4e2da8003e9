#include "html_entities.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;

TEST(HtmlEntities, NamesAreThoseOfHtml4)
{
    EXPECT_EQ(referencedCharacter("lt"), U'<');
    EXPECT_EQ(referencedCharacter("amp"), U'&');
    EXPECT_EQ(referencedCharacter("apos"), U'\'');
    EXPECT_EQ(referencedCharacter("nbsp"), U'\u00A0');
    EXPECT_EQ(referencedCharacter("eacute"), U'\u00E9');
    EXPECT_EQ(referencedCharacter("Eacute"), U'\u00C9');
    EXPECT_EQ(referencedCharacter("thetasym"), U'\u03D1');
    EXPECT_EQ(referencedCharacter("AElig"), U'\u00C6');
    EXPECT_EQ(referencedCharacter("zwnj"), U'\u200C');
    for (const char* unknown : {"", "EACUTE", "nothing", "l", "ltt", "\xE0"})
        EXPECT_EQ(referencedCharacter(unknown), std::nullopt) << unknown;
}

TEST(HtmlEntities, NumbersAreDecimalOrHexadecimal)
{
    EXPECT_EQ(referencedCharacter("#1073"), U'\u0431');
    EXPECT_EQ(referencedCharacter("#x431"), U'\u0431');
    EXPECT_EQ(referencedCharacter("#X1f600"), U'\U0001F600');
    EXPECT_EQ(referencedCharacter("#x10FFFF"), char32_t(0x10FFFF));
}

TEST(HtmlEntities, InvalidNumbersAreNoCharacters)
{
    for (const char* none :
         {"#", "#x", "#xZ", "#12a", "# 12", "#-1", "#0", "#xD800", "#xDFFF", "#x110000", "#99999999999"})
        EXPECT_EQ(referencedCharacter(none), std::nullopt) << none;
}
