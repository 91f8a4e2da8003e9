#include "tolvo_bible/bible_info.h"

#include "bad_file.h"

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using test_support::TempFolder;

CBibleInfo made(const std::string& text)
{
    const TempFolder folder;
    return CBibleInfo(folder.write("_Info_.txt", text).c_str(), "transl2");
}

/// The three titles and the copyright, each in brackets.
std::string summaryOf(const CBibleInfo& info)
{
    return "[" + info.fullTitle() + "][" + info.shortTitle() + "][" + info.abbreveatedTitle() + "][" +
           info.copyright() + "]";
}

std::string summaryOf(const std::string& text) { return summaryOf(made(text)); }

TEST(Info, WithoutAFileEveryTitleIsTheFoldersName)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder))
        EXPECT_EQ(summaryOf(CBibleInfo(bad.path.c_str(), "transl2")), "[transl2][transl2][transl2][]")
            << bad.defect;
}

TEST(Info, ThreeLinesAreTheTitles)
{
    EXPECT_EQ(summaryOf("Full\nShort\nAbbr\n"), "[Full][Short][Abbr][]");
    EXPECT_EQ(summaryOf("Full\nShort\nAbbr"), "[Full][Short][Abbr][]");
}

TEST(Info, TheLinesAfterTheTitlesAreTheCopyright)
{
    EXPECT_EQ(summaryOf("Full\r\nShort\r\nAbbr\r\nFree\r\ntext\r\n"), "[Full][Short][Abbr][Free\ntext\n]");
}

TEST(Info, TheLastCopyrightLineNeedsNoEnd)
{
    EXPECT_EQ(summaryOf("F\nS\nA\nFree\ntext"), "[F][S][A][Free\ntext\n]");
}

TEST(Info, EmptyLinesOfTheCopyrightAreKept)
{
    EXPECT_EQ(summaryOf("F\nS\nA\n\nFree\n\n"), "[F][S][A][\nFree\n\n]");
}

// Reading the second line reaches the end of the file and so gives an empty title, which the third repeats.
TEST(Info, OfOneLineGivesEmptyOtherTitles)
{
    EXPECT_EQ(summaryOf("Full\n"), "[Full][][][]");
    EXPECT_EQ(summaryOf("Full"), "[Full][][][]");
}

TEST(Info, OfTwoLinesGivesAnEmptyAbbreviation)
{
    EXPECT_EQ(summaryOf("Full\nShort\n"), "[Full][Short][][]");
    EXPECT_EQ(summaryOf("Full\nShort"), "[Full][Short][][]");
}

TEST(Info, OfAnEmptyFileHasEmptyTitles) { EXPECT_EQ(summaryOf(""), "[][][][]"); }

TEST(Info, EmptyTitleLinesAreEmptyTitles) { EXPECT_EQ(summaryOf("\n\r\n\nFree\n"), "[][][][Free\n]"); }

TEST(Info, OnlyOneLineEndingIsRemoved) { EXPECT_EQ(summaryOf("F\r\r\nS\nA\n"), "[F\r][S][A][]"); }

TEST(Info, ATitleEndsAtAZeroByte) { EXPECT_EQ(summaryOf("F\0ull\nS\nA\nFr\0ee\n"s), "[F][S][A][Fr\n]"); }

const std::string bound(255, 'x');
const std::string tooLong(256, 'x');

TEST(InfoLines, Of255BytesAreReadInEachPosition)
{
    EXPECT_EQ(summaryOf(bound + "\nS\nA\nC\n"), "[" + bound + "][S][A][C\n]");
    EXPECT_EQ(summaryOf("F\n" + bound + "\nA\nC\n"), "[F][" + bound + "][A][C\n]");
    EXPECT_EQ(summaryOf("F\nS\n" + bound + "\nC\n"), "[F][S][" + bound + "][C\n]");
    EXPECT_EQ(summaryOf("F\nS\nA\n" + bound + "\nC\n"), "[F][S][A][" + bound + "\nC\n]");
    EXPECT_EQ(summaryOf("F\nS\nA\n" + bound), "[F][S][A][" + bound + "\n]");
}

// The line buffer is full: its content is the title, and nothing can be read after it.
TEST(InfoLines, ALongerFullTitleIsCutAndRepeated)
{
    EXPECT_EQ(summaryOf(tooLong + "\nS\nA\nC\n"), "[" + bound + "][" + bound + "][" + bound + "][]");
    EXPECT_EQ(summaryOf(tooLong), "[" + bound + "][" + bound + "][" + bound + "][]");
}

TEST(InfoLines, ALongerShortTitleIsCutAndRepeated)
{
    EXPECT_EQ(summaryOf("F\n" + tooLong + "\nA\nC\n"), "[F][" + bound + "][" + bound + "][]");
}

TEST(InfoLines, ALongerAbbreviationIsCutAndEndsTheReading)
{
    EXPECT_EQ(summaryOf("F\nS\n" + tooLong + "\nC\n"), "[F][S][" + bound + "][]");
}

TEST(InfoLines, ALongerCopyrightLineEndsTheReadingBeforeIt)
{
    EXPECT_EQ(summaryOf("F\nS\nA\nC\n" + tooLong + "\nD\n"), "[F][S][A][C\n]");
}

TEST(InfoLines, TheCarriageReturnCounts)
{
    const std::string fits(254, 'x');
    EXPECT_EQ(summaryOf(fits + "\r\nS\r\nA\r\n"), "[" + fits + "][S][A][]");
    EXPECT_EQ(summaryOf(bound + "\r\nS\r\nA\r\n"), "[" + bound + "][" + bound + "][" + bound + "][]");
}

TEST(Info, SpoiledAnywhereItIsRead)
{
    test_support::walkSpoiled("Full\r\nShort\r\nAbbr\r\nFree\r\ntext\r\n", {}, [](const std::string& path) {
        test_support::walkInfo(path);
        return std::string();
    });
}

} // namespace
