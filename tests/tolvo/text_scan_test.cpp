// The substring search alone. This file is built twice: with the vectors of the processor that runs it, and without.

#include "tolvo_bible/text_scan.h"
#include "ut_utils.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

using Kedrin::Tolvo::CScanAhead;
using Kedrin::Tolvo::CTextScan;
using Case = CTextScan::Case;

constexpr std::size_t nowhere = std::string::npos;

/// Position of the needle in a separate copy, so that AddressSanitizer detects reads outside it.
std::size_t place(const std::string& haystack, const std::string& needle, Case letterCase)
{
    const auto copy = std::make_unique<char[]>(haystack.size());
    std::copy(haystack.begin(), haystack.end(), copy.get());
    const CTextScan scan(needle, letterCase);
    const char* end = copy.get() + haystack.size();
    const char* hit = scan.find(copy.get(), end);
    return hit == end && scan.needleSize() > 0 ? nowhere : static_cast<std::size_t>(hit - copy.get());
}

TEST(TextScan, OneByteIsFoundWhereTheFoldedBytesAreEqual)
{
    for (int a = 0; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) { // a zero byte ends the needle
            const std::string text(1, static_cast<char>(a));
            const std::string needle(1, static_cast<char>(b));
            EXPECT_EQ(place(text, needle, Case::ignored) == 0, ut::cyr_chricmp(text[0], needle[0]) == 0);
            EXPECT_EQ(place(text, needle, Case::exact) == 0, a == b);
        }
    }
}

TEST(TextScan, EmptyNeedleStandsAtTheBeginning)
{
    for (const Case letterCase : {Case::ignored, Case::exact}) {
        EXPECT_EQ(place("abc", "", letterCase), 0u);
        EXPECT_EQ(place("", "", letterCase), 0u);
    }
}

TEST(TextScan, NeedleLongerThanTheTextIsNowhere)
{
    EXPECT_EQ(place("abc", "abcd", Case::exact), nowhere);
    EXPECT_EQ(place("", "a", Case::exact), nowhere);
    EXPECT_EQ(place(std::string(100, 'a'), std::string(101, 'a'), Case::ignored), nowhere);
}

TEST(TextScan, NeedleOfIgnoredCaseEndsAtItsZeroByte)
{
    const std::string needle("b\0c", 3);
    EXPECT_EQ(place("abc", needle, Case::ignored), 1u);
    EXPECT_EQ(place("abc", needle, Case::exact), nowhere);
    EXPECT_EQ(place(std::string("ab\0c", 4), needle, Case::exact), 1u);
}

TEST(TextScan, LettersThatDoNotFoldKeepTheirCase)
{
    EXPECT_EQ(place("\xB8", "\xA8", Case::ignored), nowhere); // ё and Ё
    EXPECT_EQ(place("\x60\x7B", "\x40", Case::ignored), nowhere);
    EXPECT_EQ(place("@[", "`", Case::ignored), nowhere);
    EXPECT_EQ(place("\xFF", "\xDF", Case::ignored), 0u); // я and Я
}

void findAtEveryPosition(std::size_t needleSize, std::size_t textSize)
{
    const std::string needle =
        needleSize < 3 ? std::string(needleSize, 'n') : "e" + std::string(needleSize - 2, 'n') + "e";
    const std::string background(textSize, needleSize < 3 ? '-' : 'e');
    ASSERT_EQ(place(background, needle, Case::exact), nowhere);
    for (std::size_t at = 0; at + needleSize <= textSize; ++at) {
        std::string text = background;
        text.replace(at, needleSize, needle);
        ASSERT_EQ(place(text, needle, Case::exact), at) << needleSize << " in " << textSize;
        ASSERT_EQ(place(text, needle, Case::ignored), at) << needleSize << " in " << textSize;
    }
}

// Block boundaries: a needle of every size at every position of texts of every size up to a few blocks, and of sizes
// around those of several blocks tested together, among bytes that match its ends but not its middle.
TEST(TextScan, NeedleOfEverySizeIsFoundAtEveryPosition)
{
    for (const std::size_t needleSize :
         {1u, 2u, 3u, 4u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 33u, 64u, 65u, 130u}) {
        for (std::size_t textSize = needleSize; textSize <= 150; ++textSize)
            findAtEveryPosition(needleSize, textSize);
        for (const std::size_t textSize : {254u, 255u, 256u, 257u, 287u, 289u, 512u, 600u})
            findAtEveryPosition(needleSize, textSize + needleSize);
    }
}

TEST(TextScan, RandomTextsAgreeWithTheReferenceSearch)
{
    std::mt19937 random(20240217);
    const std::string alphabet = "aAb\xB8\xA8\xE1\xC1-";
    const auto text = [&](std::size_t most) {
        std::string bytes(random() % (most + 1), '\0');
        for (char& byte : bytes)
            byte = alphabet[random() % (random() % 4 == 0 ? alphabet.size() : 2)];
        return bytes;
    };
    for (int i = 0; i < 200000; ++i) {
        const std::string haystack = text(i % 16 == 0 ? 700 : 90);
        const std::string needle = text(6);
        ASSERT_EQ(place(haystack, needle, Case::exact), haystack.find(needle));
        const char* hit = ut::cyr_stristr(haystack.c_str(), needle.c_str());
        ASSERT_EQ(place(haystack, needle, Case::ignored),
                  hit == nullptr ? nowhere : static_cast<std::size_t>(hit - haystack.c_str()));
    }
}

// From each occurrence the search goes on at the next position, or after a gap, as it would for a text that begins there.
TEST(TextScan, ASearchThatGoesOnFindsWhatANewOneFinds)
{
    std::mt19937 random(20261122);
    for (int i = 0; i < 2000; ++i) {
        std::string text(random() % 400, '\0');
        for (char& byte : text)
            byte = "abA"[random() % 3];
        const CTextScan scan(std::string(text, 0, random() % 4), Case::ignored);
        const char* const end = text.data() + text.size();
        CTextScan::Window window;
        for (const char* begin = text.data(); begin < end;
             begin += 1 + random() % (random() % 8 == 0 ? 100 : 3)) {
            const char* const hit = scan.find(begin, end, window);
            ASSERT_EQ(hit - text.data(), scan.find(begin, end) - text.data()) << text << " from " << begin;
            begin = hit;
        }
    }
}

/// Searches the records of one buffer in order.
class Records
{
public:
    Records(std::string bytes, const std::string& needle, bool endsAtZero = false)
        : m_bytes(std::move(bytes)),
          m_scan(needle, endsAtZero ? Case::ignored : Case::exact),
          m_ahead(m_scan, endsAtZero)
    {}

    bool holds(std::size_t from, std::size_t count)
    {
        const std::string_view text = std::string_view(m_bytes).substr(from, count);
        return m_ahead.isIn(text, m_bytes.data() + m_bytes.size(), m_bufferNum);
    }
    std::size_t clearUpTo(std::size_t from)
    {
        return static_cast<std::size_t>(m_ahead.clearUpTo(m_bytes.data() + from) - m_bytes.data());
    }
    void exchange(const std::string& bytes)
    {
        std::copy(bytes.begin(), bytes.end(), m_bytes.begin());
        ++m_bufferNum;
    }

private:
    std::string m_bytes;
    CTextScan m_scan;
    CScanAhead m_ahead;
    unsigned int m_bufferNum = 0;
};

TEST(ScanAhead, NeedleAcrossABorderDoesNotCount)
{
    Records records("xxabxx", "ab");
    EXPECT_FALSE(records.holds(0, 3));
    EXPECT_FALSE(records.holds(3, 3));
}

TEST(ScanAhead, NeedleAcrossABorderDoesNotHideTheNextOne)
{
    Records records("xaabab", "ab");
    EXPECT_FALSE(records.holds(0, 3));
    EXPECT_TRUE(records.holds(3, 3));
}

TEST(ScanAhead, TextsMayOverlapAndComeInAnyOrder)
{
    Records records("--ab----ab--", "ab");
    EXPECT_TRUE(records.holds(6, 6));
    EXPECT_TRUE(records.holds(0, 4));
    EXPECT_FALSE(records.holds(0, 3));
    EXPECT_TRUE(records.holds(0, 12));
    EXPECT_FALSE(records.holds(4, 5));
    EXPECT_TRUE(records.holds(2, 2));
    EXPECT_TRUE(records.holds(8, 4));
    EXPECT_TRUE(records.holds(8, 4));
    EXPECT_FALSE(records.holds(10, 2));
}

TEST(ScanAhead, ExchangedBufferIsScannedAnew)
{
    Records records("abab", "ab");
    EXPECT_TRUE(records.holds(0, 2));
    records.exchange("--ab");
    EXPECT_FALSE(records.holds(0, 2));
    EXPECT_TRUE(records.holds(2, 2));
}

TEST(ScanAhead, TellsWhereTheNextOccurrenceIs)
{
    Records records("----ab--", "ab");
    EXPECT_FALSE(records.holds(0, 2));
    EXPECT_EQ(records.clearUpTo(0), 4u);
    EXPECT_TRUE(records.holds(2, 4));
    EXPECT_EQ(records.clearUpTo(2), 4u);
    EXPECT_FALSE(records.holds(6, 2));
    EXPECT_EQ(records.clearUpTo(6), 8u) << "to the end of the buffer";
}

TEST(ScanAhead, TellsNothingOfWhatLiesBeforeTheFirstText)
{
    Records records("ab--ab", "ab");
    EXPECT_FALSE(records.holds(2, 2));
    EXPECT_FALSE(records.holds(1, 1));
    EXPECT_EQ(records.clearUpTo(1), 1u);
    EXPECT_EQ(records.clearUpTo(2), 4u);
}

TEST(ScanAhead, TextEndsAtItsZeroByteWhenAskedTo)
{
    const std::string bytes("a\0b-ab", 6);
    Records ending(bytes, "b", true);
    EXPECT_FALSE(ending.holds(0, 3));
    EXPECT_TRUE(ending.holds(2, 2));
    EXPECT_TRUE(ending.holds(4, 2));
    Records whole(bytes, "b");
    EXPECT_TRUE(whole.holds(0, 3));
}

TEST(ScanAhead, EmptyNeedleIsInEveryText)
{
    for (const bool endsAtZero : {false, true}) {
        Records records(std::string("\0ab", 3), "", endsAtZero);
        for (const auto& [from, count] : {std::pair{2, 1}, std::pair{0, 0}, std::pair{0, 3}, std::pair{3, 0}})
            EXPECT_TRUE(records.holds(static_cast<std::size_t>(from), static_cast<std::size_t>(count)));
    }
}

} // namespace
