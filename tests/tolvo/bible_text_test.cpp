#include "tolvo_bible/bible_text.h"

#include "bad_file.h"
#include "read_watch.h"
#include "verse_files.h"

#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using test_support::messageOf;
using test_support::TempFolder;
using test_support::VerseFiles;

constexpr const char* outOfRange = "CFileVector::operator [](): recordIndex out of range";
constexpr const char* pointError = "CFileVector::operator [](): IO error";
constexpr const char* textError = "CBibleText::operator [](): I/O error";

const std::string abc = "\x03\x00"s + "abc";

TEST(Text, AVerseIsItsBytes)
{
    VerseFiles files(abc, {0});
    EXPECT_EQ(files.text[0], "abc");
    EXPECT_EQ(files.rangeError(1), outOfRange);
}

TEST(Text, ANegativeNumberIsOutOfRange)
{
    VerseFiles files(abc, {0});
    EXPECT_EQ(files.rangeError(-1), outOfRange);
    EXPECT_EQ(files.rangeError(-2147483647 - 1), "<nothing was thrown>"); // 2^31 records of 4 bytes wrap to 0
    EXPECT_EQ(files.rangeError(-2147483647), outOfRange);
}

TEST(Text, LengthZeroIsTheEmptyVerse)
{
    VerseFiles files("\0\0"s, {0});
    EXPECT_EQ(files.text[0], "");
}

TEST(Text, TheLengthIsLowByteFirst)
{
    VerseFiles files("\x34\x12"s + std::string(0x1234, 'x') + "y", {0});
    EXPECT_EQ(files.text[0], std::string(4660, 'x'));
}

TEST(Text, AVerseHasUpTo65535Bytes)
{
    VerseFiles files("\xFF\xFF"s + std::string(65535, 'x'), {0});
    EXPECT_EQ(files.text[0], std::string(65535, 'x'));
}

TEST(Text, BytesAreNotTouched)
{
    const std::string verse = "a\0b\r\n <b>\xC1\x98\x1A"s;
    VerseFiles files(std::string(1, static_cast<char>(verse.size())) + "\0"s + verse, {0});
    EXPECT_EQ(files.text[0], verse);
}

TEST(Text, RecordsMayStandInAnyOrderWithGapsOverlapAndBeShared)
{
    //                  0               5  7               12
    const std::string bytes = abc + "??" + "\x03\x00"s + "def" + "\x01\x00"s + "g";
    VerseFiles files(bytes, {7, 0, 12, 0, 10});
    EXPECT_EQ(files.text[0], "def");
    EXPECT_EQ(files.text[1], "abc");
    EXPECT_EQ(files.text[2], "g");
    EXPECT_EQ(files.text[3], "abc");
    EXPECT_EQ(files.readError(4), textError); // "ef" read as a length of 0x6665
}

TEST(Text, OneLengthByteIsAnIoError)
{
    VerseFiles files(abc + "\x01", {5});
    EXPECT_EQ(files.readError(0), textError);
}

TEST(Text, AnOffsetAtOrBeyondTheEndIsAnIoError)
{
    for (const unsigned int place : {5u, 6u, 4294967295u}) {
        VerseFiles files(abc, {place});
        EXPECT_EQ(files.readError(0), textError) << place;
    }
}

TEST(Text, ATextCutShortIsAnIoError)
{
    VerseFiles files("\x04\x00"s + "abc", {0});
    EXPECT_EQ(files.readError(0), textError);
}

TEST(Text, AnEmptyTextFileOpens)
{
    VerseFiles files("", {0});
    EXPECT_EQ(files.readError(0), textError);
}

// A failed stream stays failed: callers must not combine later texts with earlier ones.
TEST(Text, AfterAnIoErrorEveryReadFails)
{
    VerseFiles files(abc, {0, 5, 0});
    EXPECT_EQ(files.text[0], "abc");
    EXPECT_EQ(files.readError(1), textError);
    EXPECT_EQ(files.readError(0), textError);
    EXPECT_EQ(files.readError(2), textError);
}

TEST(Text, AfterAnIoErrorTheBoundsAreStillTestedFirst)
{
    VerseFiles files(abc, {0, 5});
    EXPECT_EQ(files.readError(1), textError);
    EXPECT_EQ(files.rangeError(2), outOfRange);
}

TEST(Text, AfterAnOutOfRangeItGoesOn)
{
    VerseFiles files(abc, {0});
    EXPECT_EQ(files.rangeError(1), outOfRange);
    EXPECT_EQ(files.text[0], "abc");
}

TEST(Text, APointFileThatEndsInsideARecordFailsForGood)
{
    VerseFiles files(abc, {0}, std::string(3, '\0'));
    EXPECT_EQ(files.text[0], "abc");
    EXPECT_EQ(files.readError(1), pointError);
    EXPECT_EQ(files.readError(0), pointError);
    EXPECT_EQ(files.rangeError(2), outOfRange);
}

TEST(Text, ABrokenDiskFailsForGood)
{
    VerseFiles files(abc, {0});
    {
        test_support::ReadWatch watch;
        watch.breakDisk();
        EXPECT_EQ(files.readError(0), pointError);
    }
    EXPECT_EQ(files.readError(0), pointError);
}

TEST(Text, PartialReadsArePutTogether)
{
    VerseFiles files(abc + abc, {0, 5});
    test_support::ReadWatch watch;
    watch.giveAtMost(1);
    EXPECT_EQ(files.text[1], "abc");
}

TEST(TextFiles, ThePointFileIsOpenedFirst)
{
    const TempFolder folder;
    const std::string text = folder.file("CompactText.bin");
    const std::string point = folder.file("CompactPoint.bin");
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CBibleText(text.c_str(), point.c_str()); }),
              "CFileVector::CFileVector(): cannot open file " + point);
}

TEST(TextFiles, EitherThatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    const std::string sound = folder.write("sound", std::string(4, '\0'));
    for (const auto& bad : test_support::unopenableFiles(folder)) {
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CBibleText(bad.path.c_str(), sound.c_str()); }),
                  "CBibleText::CBibleText(): error opening file " + bad.path)
            << bad.defect;
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CBibleText(sound.c_str(), bad.path.c_str()); }),
                  "CFileVector::CFileVector(): cannot open file " + bad.path)
            << bad.defect;
    }
}

TEST(TextReads, AVerseFollowedByTheNextCostsTwo)
{
    VerseFiles files(abc + abc + abc, {0, 5, 10});
    test_support::ReadWatch watch;
    EXPECT_EQ(files.text[1], "abc");
    ASSERT_EQ(watch.reads().size(), 2u);
    EXPECT_EQ(watch.reads()[0].byteOffset, 4u); // two records of the point file
    EXPECT_EQ(watch.reads()[0].wanted, 8u);
    EXPECT_EQ(watch.reads()[1].byteOffset, 5u); // only its own record
    EXPECT_EQ(watch.reads()[1].wanted, 5u);
}

TEST(TextReads, TheLastVerseOfTheFileCostsTwo)
{
    VerseFiles files(abc + abc, {0, 5});
    test_support::ReadWatch watch;
    EXPECT_EQ(files.text[1], "abc");
    EXPECT_EQ(watch.reads().size(), 2u);
}

TEST(TextReads, AVerseWhoseEndIsNotKnownCostsThree)
{
    VerseFiles files(abc + abc, {5, 0});
    test_support::ReadWatch watch;
    EXPECT_EQ(files.text[0], "abc");
    EXPECT_EQ(watch.reads().size(), 3u); // only the length bytes
}

TEST(TextReads, NothingIsKeptBetweenCalls)
{
    VerseFiles files(abc + abc, {0, 5});
    test_support::ReadWatch watch;
    EXPECT_EQ(files.text[0], "abc");
    EXPECT_EQ(files.text[0], "abc");
    EXPECT_EQ(watch.reads().size(), 4u);
}

const std::string soundText = abc + "\x00\x00"s + "\x02\x00"s + "de";
const std::string soundPoint = "\x00\x00\x00\x00\x05\x00\x00\x00\x07\x00\x00\x00"s;

TEST(TextFiles, SpoiledAnywhereTheTextReadsOrFails)
{
    const TempFolder folder;
    const std::string point = folder.write("point", soundPoint);
    test_support::walkSpoiled(soundText, {},
                              [&](const std::string& path) { return test_support::walkText(path, point); });
}

TEST(TextFiles, SpoiledAnywhereThePointFileReadsOrFails)
{
    const TempFolder folder;
    const std::string text = folder.write("text", soundText);
    test_support::walkSpoiled(soundPoint, {},
                              [&](const std::string& path) { return test_support::walkText(text, path); });
}

} // namespace
