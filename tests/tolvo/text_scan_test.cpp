// The substring search alone. This file is built twice: with the vectors of the processor that runs it, and without.

#include "tolvo_bible/text_scan.h"
#include "ut_utils.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

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

// After each occurrence the window tells the same of the positions that it contains as a plain search.
TEST(TextScan, AWindowTellsTheMarksAndZeroBytesItContains)
{
    std::mt19937 random(20261123);
    std::size_t told = 0;
    for (int i = 0; i < 2000; ++i) {
        std::string text(64 + random() % 5000, '\0');
        const unsigned int rarity = 1 + static_cast<unsigned int>(random() % 300);
        for (char& byte : text)
            byte = random() % rarity == 0 ? "\0aA"[random() % 3] : '-';
        const CTextScan scan("aa", Case::ignored);
        CTextScan::Window window;
        scan.find(text.data(), text.data() + text.size(), window);
        const auto isMark = [](const char* at) { return (at[0] | 0x20) == 'a' && (at[1] | 0x20) == 'a'; };
        for (const char* from = window.begin(); from < window.end(); ++from, ++told) {
            ASSERT_TRUE(window.contains(from));
            const char* mark = from;
            while (mark < window.end() && !isMark(mark))
                ++mark;
            ASSERT_EQ(window.nextMark(from) - from, mark - from);
            ASSERT_EQ(window.nextZero(from), std::find(from, window.end(), '\0'));
        }
        ASSERT_FALSE(window.contains(window.end()));
    }
    EXPECT_GT(told, 10000u);
}

} // namespace
