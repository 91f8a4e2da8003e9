#include "ascii.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;

TEST(Ascii, CharactersAreClassifiedByTheirBytesAlone)
{
    std::string letters, digits, spaces;
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        letters += isAsciiLetter(c) ? std::string(1, c) : "";
        digits += isAsciiDigit(c) ? std::string(1, c) : "";
        spaces += isWhiteSpace(c) ? std::string(1, c) : "";
    }
    EXPECT_EQ(letters, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(digits, "0123456789");
    EXPECT_EQ(spaces, "\t\n\r ");
}

TEST(Ascii, OnlyAsciiLettersChangeCase)
{
    EXPECT_EQ(lower("AZ az 09 @[`{ ÀЯ\xC0"), "az az 09 @[`{ ÀЯ\xC0");
    EXPECT_EQ(upper("AZ az 09 @[`{ àя\xE0"), "AZ AZ 09 @[`{ àя\xE0");
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        EXPECT_EQ(lower(c) != c, c >= 'A' && c <= 'Z') << i;
        EXPECT_EQ(upper(c) != c, c >= 'a' && c <= 'z') << i;
    }
}

TEST(Ascii, TextOfWhiteSpaceIsBlank)
{
    EXPECT_TRUE(isBlank(""));
    EXPECT_TRUE(isBlank(" \t\r\n"));
    EXPECT_FALSE(isBlank(" \v"));
    EXPECT_FALSE(isBlank("\u00A0")) << "a no-break space is text";
}

TEST(Ascii, TextsAreTrimmed)
{
    EXPECT_EQ(trimmed(" \ta b\r\n"), "a b");
    EXPECT_EQ(trimmedStart(" \ta b\r\n"), "a b\r\n");
    EXPECT_EQ(trimmedEnd(" \ta b\r\n"), " \ta b");
    EXPECT_EQ(trimmed("..a..", "."), "a");
    EXPECT_EQ(trimmedEnd("a).", ")"), "a).");
    for (const std::string_view blank : {"", " ", "\n \t"}) {
        EXPECT_EQ(trimmed(blank), "");
        EXPECT_EQ(trimmedStart(blank), "");
        EXPECT_EQ(trimmedEnd(blank), "");
    }
}

TEST(Ascii, TextsAreJoined)
{
    EXPECT_EQ(joined({}, ", "), "");
    EXPECT_EQ(joined({"a"}, ", "), "a");
    EXPECT_EQ(joined({"a", "", "b"}, ", "), "a, , b");
}

} // namespace
