#include "tolvo_bible/bible_text.h"

#include "read_watch.h"
#include "thrown.h"
#include "verse_files.h"
#include "walkers.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using test_support::messageOf;
using test_support::plainVerse;
using test_support::ReadWatch;
using test_support::VerseFiles;

using Verses = std::vector<std::string>;

constexpr const char* textError = "CBibleText::operator [](): I/O error";

std::string record(const std::string& verse)
{
    return std::string{static_cast<char>(verse.size()), static_cast<char>(verse.size() >> 8)} + verse;
}

/// A text file and the places of its verses, made from a seed. `Layout` says how records lie to each other.
enum class Layout
{
    contiguous,
    gaps,
    descending,
    shared,
    overlapping
};

struct MadeText
{
    std::string bytes;
    std::vector<unsigned int> places;
};

MadeText makeText(Layout layout, unsigned int verseCount, std::mt19937& random)
{
    const auto below = [&](unsigned int bound) { return static_cast<unsigned int>(random() % bound); };
    MadeText made;
    for (unsigned int verse = 0; verse < verseCount; ++verse) {
        if (layout == Layout::gaps)
            made.bytes += std::string(below(4), '?');
        made.places.push_back(static_cast<unsigned int>(made.bytes.size()));
        std::string text;
        for (unsigned int length = below(below(5) == 0 ? 70 : 9); length > 0; --length)
            text.push_back(static_cast<char>('a' + below(26)));
        made.bytes += record(text);
    }
    if (layout == Layout::descending)
        made.places.assign(made.places.rbegin(), made.places.rend());
    for (unsigned int& place : made.places) {
        if (layout == Layout::shared && below(3) == 0)
            place = made.places[below(verseCount)];
        if (layout == Layout::overlapping &&
            below(3) == 0) // lengths taken from letters: most run past the end
            place = below(static_cast<unsigned int>(made.bytes.size()));
    }
    return made;
}

/// Every verse of a run until it throws; the message of what it throws comes last.
Verses versesOf(CBibleText& text, unsigned int first, unsigned int count, std::size_t pieceBytes)
{
    Verses verses;
    CVerseRun run(text, first, count, pieceBytes);
    try {
        while (run.next()) {
            EXPECT_EQ(run.verseNum(), first + verses.size());
            verses.push_back("=" + std::string(run.text()));
        }
    } catch (const std::out_of_range& ex) {
        verses.push_back(ex.what());
    } catch (const std::ios_base::failure& ex) {
        verses.push_back(ex.what());
    }
    return verses;
}

Verses plainVerses(const MadeText& made, unsigned int first, unsigned int count)
{
    const std::string pointBytes = VerseFiles::recordsOf(made.places);
    Verses verses;
    for (unsigned int verse = first; verse < first + count; ++verse) {
        verses.push_back(plainVerse(made.bytes, pointBytes, verse));
        if (!verses.back().starts_with('='))
            break;
    }
    return verses;
}

class EveryLayout : public testing::TestWithParam<Layout>
{
};

INSTANTIATE_TEST_SUITE_P(VerseRun, EveryLayout,
                         testing::Values(Layout::contiguous, Layout::gaps, Layout::descending, Layout::shared,
                                         Layout::overlapping));

TEST_P(EveryLayout, GivesThePlainVersesInPiecesOfAnySize)
{
    for (unsigned int seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        const unsigned int verseCount = 1 + static_cast<unsigned int>(random() % 12);
        const MadeText made = makeText(GetParam(), verseCount, random);
        for (std::size_t pieceBytes = 1; pieceBytes <= 64; ++pieceBytes) {
            VerseFiles files(made.bytes, made.places);
            EXPECT_EQ(versesOf(files.text, 0, verseCount, pieceBytes), plainVerses(made, 0, verseCount))
                << "seed " << seed << ", pieces of " << pieceBytes;
        }
    }
}

TEST_P(EveryLayout, GivesWhatSingleReadsGiveFromEveryVerseOn)
{
    for (unsigned int seed = 100; seed < 110; ++seed) {
        std::mt19937 random(seed);
        const MadeText made = makeText(GetParam(), 9, random);
        for (unsigned int first = 0; first <= 10; ++first) {
            VerseFiles run(made.bytes, made.places);
            Verses single;
            for (unsigned int verse = first; verse < first + 4; ++verse) {
                VerseFiles files(made.bytes, made.places);
                single.push_back(messageOf<std::exception>(
                    [&] { single.push_back("=" + files.text[static_cast<int>(verse)]); }));
                if (single.back() != "<nothing was thrown>")
                    break;
                single.pop_back();
            }
            EXPECT_EQ(versesOf(run.text, first, 4, 20), single) << "seed " << seed << ", from " << first;
        }
    }
}

TEST_P(EveryLayout, AFileCutShortFailsAtTheVerseThatIsCut)
{
    std::mt19937 random(7);
    MadeText made = makeText(GetParam(), 8, random);
    const std::string whole = made.bytes;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        made.bytes = whole.substr(0, length);
        for (const std::size_t pieceBytes : {std::size_t(1), std::size_t(16), CVerseRun::defaultPieceBytes}) {
            VerseFiles files(made.bytes, made.places);
            EXPECT_EQ(versesOf(files.text, 0, 8, pieceBytes), plainVerses(made, 0, 8)) << length;
        }
    }
}

// The same when the file loses its end after it was opened, so that its length is not what we took it for.
TEST_P(EveryLayout, AFileThatShrinksUnderUsFailsAtTheVerseThatIsCut)
{
    std::mt19937 random(8);
    MadeText made = makeText(GetParam(), 8, random);
    const std::string whole = made.bytes;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        VerseFiles files(whole, made.places);
        files.shrinkTextTo(length);
        made.bytes = whole.substr(0, length);
        EXPECT_EQ(versesOf(files.text, 0, 8, 32), plainVerses(made, 0, 8)) << length;
    }
}

TEST(VerseRun, OfNoVersesReadsNothing)
{
    VerseFiles files(record("abc"), {0});
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 5, 0, 64), Verses{});
    EXPECT_TRUE(watch.reads().empty());
}

TEST(VerseRun, PastTheLastVerseIsOutOfRange)
{
    VerseFiles files(record("abc"), {0});
    EXPECT_EQ(versesOf(files.text, 0, 3, 64),
              (Verses{"=abc", "CFileVector::operator [](): recordIndex out of range"}));
}

TEST(VerseRun, APartialRecordOfThePointFileIsAnIoErrorWhenItIsReached)
{
    VerseFiles files(record("abc"), {0, 0});
    files.shrinkPointTo(7);
    EXPECT_EQ(versesOf(files.text, 0, 2, 64), (Verses{"=abc", "CFileVector::operator [](): IO error"}));
    EXPECT_EQ(files.readError(0), "CFileVector::operator [](): IO error");
}

TEST(VerseRun, AFailureLastsForTheTextAndForOtherRuns)
{
    VerseFiles files(record("abc") + record("def"), {0, 99, 5});
    CVerseRun other(files.text, 0, 3);
    EXPECT_TRUE(other.next());
    EXPECT_EQ(versesOf(files.text, 1, 2, 64), Verses{textError});
    EXPECT_EQ(files.readError(0), textError);
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { other.next(); }), textError);
    EXPECT_EQ(versesOf(files.text, 0, 1, 64), Verses{textError});
    EXPECT_EQ(files.rangeError(3), "CFileVector::operator [](): recordIndex out of range");
}

TEST(VerseRun, KeepsItsTextWhileAnotherRunReads)
{
    VerseFiles files(record("abc") + record("def"), {0, 5});
    CVerseRun one(files.text, 0, 2);
    CVerseRun two(files.text, 1, 1);
    EXPECT_TRUE(one.next());
    EXPECT_TRUE(two.next());
    EXPECT_EQ(one.text(), "abc");
    EXPECT_EQ(two.text(), "def");
    EXPECT_TRUE(one.next());
    EXPECT_EQ(one.text(), "def");
}

TEST(VerseRun, ZeroBytesAndFullLengthsPass)
{
    const std::string longest(65535, '\0');
    VerseFiles files(record("a\0b"s) + record(longest) + record(""), {0, 5, 65542});
    EXPECT_EQ(versesOf(files.text, 0, 3, 64), (Verses{"=a\0b"s, "=" + longest, "="}));
}

/// A text of `count` verses "<n>" that follow each other.
MadeText countingText(unsigned int count)
{
    MadeText made;
    for (unsigned int verse = 0; verse < count; ++verse) {
        made.places.push_back(static_cast<unsigned int>(made.bytes.size()));
        made.bytes += record(std::to_string(verse));
    }
    return made;
}

TEST(VerseRun, ManyThousandVersesKeepTheirNumbers)
{
    const MadeText made = countingText(10000);
    VerseFiles files(made.bytes, made.places);
    CVerseRun run(files.text, 0, 10000);
    for (unsigned int verse = 0; verse < 10000; ++verse) {
        ASSERT_TRUE(run.next());
        ASSERT_EQ(run.verseNum(), verse);
        ASSERT_EQ(run.text(), std::to_string(verse));
    }
    EXPECT_FALSE(run.next());
}

TEST(VerseRunReads, AChapterCostsTwoAndReadsNoOtherVerse)
{
    const MadeText made = countingText(100);
    VerseFiles files(made.bytes, made.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 20, 30, CVerseRun::defaultPieceBytes).size(), 30u);
    ASSERT_EQ(watch.reads().size(), 2u);
    EXPECT_EQ(watch.reads()[0].byteOffset, 20u * 4);
    EXPECT_EQ(watch.reads()[0].wanted, 31u * 4); // one place more tells where the last verse ends
    EXPECT_EQ(watch.reads()[1].byteOffset, made.places[20]);
    EXPECT_EQ(watch.reads()[1].wanted, made.places[50] - made.places[20]);
}

TEST(VerseRunReads, TheLastChapterCostsTwoAsWell)
{
    const MadeText made = countingText(50);
    VerseFiles files(made.bytes, made.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 20, 30, CVerseRun::defaultPieceBytes).size(), 30u);
    EXPECT_EQ(watch.reads().size(), 2u);
}

TEST(VerseRunReads, AWholeTextComesInPiecesOfTheSizeAskedFor)
{
    const MadeText made = countingText(1000);
    VerseFiles files(made.bytes, made.places);
    ReadWatch watch;
    EXPECT_EQ(versesOf(files.text, 0, 1000, 1024).size(), 1000u);
    EXPECT_LE(watch.reads().size(), 2 + made.bytes.size() / 1000);
    for (const ReadWatch::Read& read : watch.reads())
        EXPECT_LE(read.wanted, 4 * 1001u);
}

TEST(VerseRunReads, ScatteredRecordsAreReadByThemselves)
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
