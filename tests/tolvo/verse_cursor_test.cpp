#include "tolvo_bible/bible_text.h"

#include "allocation_watch.h"
#include "made_text.h"
#include "read_watch.h"
#include "thrown.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using namespace test_support;

constexpr const char* textError = "CBibleText::operator [](): I/O error";

TEST(VerseCursor, OfNoVersesReadsNothing)
{
    VerseFiles files(record("abc"), {0});
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 5, 0, 64), Verses{});
    EXPECT_TRUE(watch.reads().empty());
}

TEST(VerseCursor, PastTheLastVerseIsOutOfRange)
{
    VerseFiles files(record("abc"), {0});
    EXPECT_EQ(versesOf(files.text, 0, 3, 64),
              (Verses{"=abc", "CFileVector::operator [](): recordIndex out of range"}));
}

TEST(VerseCursor, APartialRecordOfThePointFileIsAnIoErrorWhenItIsReached)
{
    VerseFiles files(record("abc"), {0, 0});
    files.shrinkPointTo(7);
    EXPECT_EQ(versesOf(files.text, 0, 2, 64), (Verses{"=abc", "CFileVector::operator [](): IO error"}));
    EXPECT_EQ(files.readError(0), "CFileVector::operator [](): IO error");
}

TEST(VerseCursor, AFailureLastsForTheTextAndForOtherCursors)
{
    VerseFiles files(record("abc") + record("def"), {0, 99, 5});
    CVerseCursor other(files.text, 0, 3);
    EXPECT_TRUE(other.next());
    EXPECT_EQ(versesOf(files.text, 1, 2, 64), Verses{textError});
    EXPECT_EQ(files.readError(0), textError);
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { other.next(); }), textError);
    EXPECT_EQ(versesOf(files.text, 0, 1, 64), Verses{textError});
    EXPECT_EQ(files.rangeError(3), "CFileVector::operator [](): recordIndex out of range");
}

// After a failure the cursor must not return verses it has already read: single reads would not return them.
TEST(VerseCursor, AFailureElsewhereEndsACursorThatHasReadOn)
{
    VerseFiles files(record("abc") + record("def"), {0, 5, 99});
    CVerseCursor cursor(files.text, 0, 2);
    EXPECT_TRUE(cursor.next());
    EXPECT_EQ(files.readError(2), textError);
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { cursor.next(); }), textError);
}

// The offsets of the verses are read in blocks; after a block that could not be read, none of it may be used.
TEST(VerseCursor, AskedAgainAfterAFailureItFailsAgain)
{
    VerseFiles files(record("abc"), {0});
    CVerseCursor cursor(files.text, 0, 3);
    EXPECT_TRUE(cursor.next());
    for (int again = 0; again < 3; ++again)
        EXPECT_EQ(messageOf<std::out_of_range>([&] { cursor.next(); }),
                  "CFileVector::operator [](): recordIndex out of range");
}

TEST(VerseCursor, AskedAgainAfterAFailedReadOfOffsetsItFailsAgain)
{
    VerseFiles files(record("abc"), {0, 0, 0});
    CVerseCursor cursor(files.text, 0, 3);
    files.shrinkPointTo(3);
    for (int again = 0; again < 3; ++again)
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { cursor.next(); }),
                  "CFileVector::operator [](): IO error");
}

TEST(VerseCursor, ARunEndsWhereTheNextRecordDoesNotFollow)
{
    VerseFiles files(record("abc") + record("de") + "-" + record("f") + record(""), {0, 5, 10, 13});
    CVerseCursor cursor(files.text, 0, 4);
    std::vector<Verses> runs;
    while (cursor.nextRun()) {
        runs.emplace_back();
        for (std::size_t i = 0; i < cursor.run().size(); ++i)
            runs.back().emplace_back(cursor.run()[i]);
    }
    EXPECT_EQ(runs, (std::vector<Verses>{{"abc"}, {"de"}, {"f"}, {""}}));
}

TEST(VerseCursor, KeepsItsTextWhileAnotherCursorReads)
{
    VerseFiles files(record("abc") + record("def"), {0, 5});
    CVerseCursor one(files.text, 0, 2);
    CVerseCursor two(files.text, 1, 1);
    EXPECT_TRUE(one.next());
    EXPECT_TRUE(two.next());
    EXPECT_EQ(one.text(), "abc");
    EXPECT_EQ(two.text(), "def");
    EXPECT_TRUE(one.next());
    EXPECT_EQ(one.text(), "def");
}

TEST(VerseCursor, ZeroBytesAndFullLengthsPass)
{
    const std::string longest(65535, '\0');
    VerseFiles files(record("a\0b"s) + record(longest) + record(""), {0, 5, 65542});
    EXPECT_EQ(versesOf(files.text, 0, 3, 64), (Verses{"=a\0b"s, "=" + longest, "="}));
}

TEST(VerseCursor, ManyThousandVersesKeepTheirNumbers)
{
    const MadeText made = countingText(10000);
    VerseFiles files(made.bytes, made.places);
    CVerseCursor cursor(files.text, 0, 10000);
    for (unsigned int verse = 0; verse < 10000; ++verse) {
        ASSERT_TRUE(cursor.next());
        ASSERT_EQ(cursor.verseNum(), verse);
        ASSERT_EQ(cursor.text(), std::to_string(verse));
    }
    EXPECT_FALSE(cursor.next());
}

// Neither a verse count nor a length may cause an allocation larger than the files.
TEST(VerseCursor, HugeNumbersTakeLittleMemory)
{
    VerseFiles files(record("abc") + "\xFF\xFF", {0, 5});
    const test_support::AllocationWatch watch;
    CVerseCursor cursor(files.text, 0, 4294967295u, std::size_t(1) << 40);
    EXPECT_TRUE(cursor.next());
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { cursor.next(); }), textError);
    EXPECT_LT(watch.total(), 2 * CVerseCursor::defaultBlockBytes);
}

TEST(VerseCursorReads, AChapterCostsTwoAndReadsNoOtherVerse)
{
    const MadeText made = countingText(100);
    VerseFiles files(made.bytes, made.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 20, 30, CVerseCursor::defaultBlockBytes).size(), 30u);
    ASSERT_EQ(watch.reads().size(), 2u);
    EXPECT_EQ(watch.reads()[0].byteOffset, 20u * 4);
    EXPECT_EQ(watch.reads()[0].wanted, 31u * 4); // one more offset is the end of the last verse
    EXPECT_EQ(watch.reads()[1].byteOffset, made.places[20]);
    EXPECT_EQ(watch.reads()[1].wanted, made.places[50] - made.places[20]);
}

TEST(VerseCursorReads, TheLastChapterCostsTwoAsWell)
{
    const MadeText made = countingText(50);
    VerseFiles files(made.bytes, made.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 20, 30, CVerseCursor::defaultBlockBytes).size(), 30u);
    EXPECT_EQ(watch.reads().size(), 2u);
}

TEST(VerseCursorReads, AWholeTextComesInPiecesOfTheSizeAskedFor)
{
    const MadeText made = countingText(1000);
    VerseFiles files(made.bytes, made.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 0, 1000, 1024).size(), 1000u);
    EXPECT_LE(watch.reads().size(), 2 + made.bytes.size() / 1000);
    for (const ReadWatch::Read& read : watch.reads())
        EXPECT_LE(read.wanted, 4 * 1001u);
}

TEST(VerseCursorReads, ScatteredRecordsAreReadByThemselves)
{
    const MadeText made = countingText(4);
    MadeText descending = made;
    descending.places.assign(made.places.rbegin(), made.places.rend());
    VerseFiles files(descending.bytes, descending.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 0, 4, 1024).size(), 4u);
    for (const ReadWatch::Read& read : watch.reads())
        EXPECT_LE(read.wanted, 16u);
}

} // namespace
