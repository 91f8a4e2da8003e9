#include "messages.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;

TEST(Messages, ControlCharactersAreShownAsNumbers)
{
    EXPECT_EQ(printable("a\x1B[31mb\x7F\r"), "a\\x1B[31mb\\x7F\\x0D");
    EXPECT_EQ(printable(std::string("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(printable("\u0085\u009B31m\u00A0"), "\\x85\\x9B31m\u00A0") << "those of two bytes";
}

TEST(Messages, NameIsShownOnOneLine) { EXPECT_EQ(printableName("a\nb\tc\x1B"), "a\\x0Ab\\x09c\\x1B"); }

/// An exception's text would end there.
TEST(Messages, ZeroBytesInArgumentsAreShown)
{
    EXPECT_EQ(message("%s: %s!", std::string("a\0b", 3), inQuotes(std::string_view("\0", 1))),
              "a\\x00b: \"\\x00\"!");
}

TEST(Messages, QuotedTextIsOneLine)
{
    EXPECT_EQ(inQuotes("utf\n8\n"), "\"utf\\x0A8\\x0A\"");
    EXPECT_EQ(inQuotes("a\nbc", 3), "\"a\\x0Ab...\"") << "truncated before that";
    EXPECT_EQ(inQuotes("a\u0431", 2), "\"a...\"") << "between characters";
}

TEST(Messages, AnyOtherTextStaysAsItIs)
{
    for (const char* text : {"", "\tБог\n  line 2: \u2013 \U00010330\n", "\xC2", "\x80\x9B", "\xC2\xC2\xA0"})
        EXPECT_EQ(printable(text), text);
}

} // namespace
