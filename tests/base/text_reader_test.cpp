#include "text_reader.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace std::string_literals;
using ut::CLineReader;
using ut::CNumberReader;

std::vector<std::string> linesOf(const std::string& text, std::size_t maxLength = CLineReader::anyLength)
{
    std::vector<std::string> lines;
    CLineReader reader(text, maxLength);
    while (reader.next())
        lines.push_back(reader.line());
    return lines;
}

using Lines = std::vector<std::string>;

TEST(LineReader, GivesLinesWithoutTheirEndings) { EXPECT_EQ(linesOf("a\nb\r\nc\n"), (Lines{"a", "b", "c"})); }

TEST(LineReader, TheLastLineNeedsNoEnding) { EXPECT_EQ(linesOf("a\nb"), (Lines{"a", "b"})); }

TEST(LineReader, NoLineFollowsTheLastEnding)
{
    EXPECT_EQ(linesOf(""), Lines{});
    EXPECT_EQ(linesOf("\n"), Lines{""});
    EXPECT_EQ(linesOf("\n\n"), (Lines{"", ""}));
}

TEST(LineReader, RemovesOneLineEndingOnly)
{
    EXPECT_EQ(linesOf("a\r\r\n"), Lines{"a\r"});
    EXPECT_EQ(linesOf("a\rb\n"), Lines{"a\rb"});
    EXPECT_EQ(linesOf("a\r"), Lines{"a"});
}

// The formats are defined by a reader with zero-terminated line buffers.
TEST(LineReader, ALineEndsAtItsFirstZeroByte)
{
    EXPECT_EQ(linesOf("ab\0cd\r\nef\n"s), (Lines{"ab", "ef"}));
    EXPECT_EQ(linesOf("a\r\0b\n"s), Lines{"a"});
}

TEST(LineReader, CountsTheCarriageReturnAndNotTheLineFeed)
{
    EXPECT_EQ(linesOf("1234\r\n", 5), Lines{"1234"});
    EXPECT_EQ(linesOf("12345\n", 5), Lines{"12345"});
    EXPECT_EQ(linesOf("12345\r\n", 5), Lines{});
    EXPECT_EQ(linesOf("12345", 5), Lines{"12345"});
    EXPECT_EQ(linesOf("123456", 5), Lines{});
}

TEST(LineReader, AnOverLongLineIsShownCutAndEndsEverything)
{
    CLineReader reader("123456\nab\n", 5);
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.failed());
    EXPECT_EQ(reader.line(), "12345");
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.line(), "");
}

TEST(LineReader, TheEndOfTheTextIsALastingFailure)
{
    CLineReader reader("a");
    EXPECT_TRUE(reader.next());
    EXPECT_FALSE(reader.failed());
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.failed());
    EXPECT_EQ(reader.line(), "");
}

TEST(NumberReader, ReadsNumbersBetweenWhiteSpaceOfAnyKind)
{
    CNumberReader reader(" 1\t2\n\r\n3\v4\f5 ");
    for (unsigned int number = 1; number <= 5; ++number)
        EXPECT_EQ(reader.nextUnsigned(), number);
    EXPECT_FALSE(reader.nextUnsigned());
}

TEST(NumberReader, ReadsSignsOfSignedNumbers)
{
    CNumberReader reader("-20 +3 0 -0");
    EXPECT_EQ(reader.nextSigned(), -20);
    EXPECT_EQ(reader.nextSigned(), 3);
    EXPECT_EQ(reader.nextSigned(), 0);
    EXPECT_EQ(reader.nextSigned(), 0);
}

TEST(NumberReader, AnUnsignedNumberMayHaveAPlusAndNoMinus)
{
    EXPECT_EQ(CNumberReader("+7").nextUnsigned(), 7u);
    EXPECT_FALSE(CNumberReader("-7").nextUnsigned());
}

TEST(NumberReader, TwoSignsAreNoNumber)
{
    for (const char* text : {"+-1", "--1", "++1", "-+1", "+", "-", "+ 1", "- 1"})
        EXPECT_FALSE(CNumberReader(text).nextSigned()) << text;
}

TEST(NumberReader, ANumberEndsAtTheFirstOtherCharacter)
{
    CNumberReader reader("12-3x4");
    EXPECT_EQ(reader.nextSigned(), 12);
    EXPECT_EQ(reader.nextSigned(), -3);
    EXPECT_FALSE(reader.nextSigned());
    EXPECT_EQ(reader.rest(), "x4");
}

TEST(NumberReader, LeadingZerosAreDecimal) { EXPECT_EQ(CNumberReader("0010").nextUnsigned(), 10u); }

TEST(NumberReader, TakesTheWholeRangeAndNoMore)
{
    EXPECT_EQ(CNumberReader("4294967295").nextUnsigned(), 4294967295u);
    EXPECT_FALSE(CNumberReader("4294967296").nextUnsigned());
    EXPECT_EQ(CNumberReader("-2147483648").nextSigned(), -2147483647 - 1);
    EXPECT_EQ(CNumberReader("2147483647").nextSigned(), 2147483647);
    EXPECT_FALSE(CNumberReader("2147483648").nextSigned());
    EXPECT_FALSE(CNumberReader("-2147483649").nextSigned());
    EXPECT_FALSE(CNumberReader("99999999999999999999999999").nextUnsigned());
}

TEST(NumberReader, WhatIsNoNumberIsALastingFailure)
{
    CNumberReader reader("x 5");
    EXPECT_FALSE(reader.nextUnsigned());
    EXPECT_FALSE(reader.nextUnsigned());
    EXPECT_FALSE(reader.nextSigned());
    CNumberReader tooBig("4294967296 5");
    EXPECT_FALSE(tooBig.nextUnsigned());
    EXPECT_FALSE(tooBig.nextUnsigned());
}

TEST(NumberReader, NeitherCommasNorZeroBytesNorHardBlanksAreWhiteSpace)
{
    for (const std::string& text : {"1,2"s, "1\0002"s,
                                    "1\xA0"s
                                    "2"s}) {
        CNumberReader reader(text);
        EXPECT_EQ(reader.nextUnsigned(), 1u);
        EXPECT_FALSE(reader.nextUnsigned());
    }
}

TEST(NumberReader, TheRestBeginsRightAfterTheNumber)
{
    CNumberReader reader("1 2\r\nText");
    reader.nextUnsigned();
    reader.nextUnsigned();
    EXPECT_EQ(reader.rest(), "\r\nText");
}

} // namespace
