// Verse cursors over texts in every arrangement in the file, compared with simple reads.

#include "made_text.h"
#include "walkers.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::Tolvo;
using namespace test_support;

Verses plainVerses(const MadeText& made, unsigned int first, unsigned int count)
{
    const std::string pointBytes = test_support::recordsOf(made.places);
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

INSTANTIATE_TEST_SUITE_P(VerseCursor, EveryLayout,
                         testing::Values(Layout::contiguous, Layout::gaps, Layout::descending, Layout::shared,
                                         Layout::overlapping));

TEST_P(EveryLayout, GivesThePlainVersesInPiecesOfAnySize)
{
    for (unsigned int seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        const unsigned int verseCount = 1 + static_cast<unsigned int>(random() % 12);
        const MadeText made = makeText(GetParam(), verseCount, random);
        for (std::size_t blockBytes = 1; blockBytes <= 64; ++blockBytes) {
            VerseFiles files(made.bytes, made.places);
            EXPECT_EQ(versesOf(files.text, 0, verseCount, blockBytes), plainVerses(made, 0, verseCount))
                << "seed " << seed << ", blocks of " << blockBytes;
        }
    }
}

TEST_P(EveryLayout, GivesWhatSingleReadsGiveFromEveryVerseOn)
{
    for (unsigned int seed = 100; seed < 110; ++seed) {
        std::mt19937 random(seed);
        const MadeText made = makeText(GetParam(), 9, random);
        for (unsigned int first = 0; first <= 10; ++first) {
            VerseFiles cursorFiles(made.bytes, made.places);
            Verses single;
            for (unsigned int verse = first; verse < first + 4; ++verse) {
                VerseFiles files(made.bytes, made.places);
                single.push_back(messageOf<std::exception>(
                    [&] { single.push_back("=" + files.text[static_cast<int>(verse)]); }));
                if (single.back() != "<nothing was thrown>")
                    break;
                single.pop_back();
            }
            EXPECT_EQ(versesOf(cursorFiles.text, first, 4, 20), single)
                << "seed " << seed << ", from " << first;
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
        for (const std::size_t blockBytes :
             {std::size_t(1), std::size_t(16), CVerseCursor::defaultBlockBytes}) {
            VerseFiles files(made.bytes, made.places);
            EXPECT_EQ(versesOf(files.text, 0, 8, blockBytes), plainVerses(made, 0, 8)) << length;
        }
    }
}

// The same if the file is truncated after it was opened, so that its length is no longer the known one.
TEST_P(EveryLayout, AFileThatIsTruncatedWhileOpenFailsAtTheVerseThatIsCut)
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

/// All verses of a cursor, run by run, until it throws; the message comes last.
Verses versesOfRuns(CBibleText& text, unsigned int count, std::size_t blockBytes)
{
    Verses verses;
    CVerseCursor cursor(text, 0, count, blockBytes);
    try {
        while (cursor.nextRun()) {
            const CVerseRun& run = cursor.run();
            EXPECT_EQ(run.firstVerseNum(), verses.size());
            EXPECT_GE(run.size(), 1u);
            for (std::size_t i = 0; i < run.size(); ++i)
                verses.push_back("=" + std::string(run[i]));
        }
    } catch (const std::ios_base::failure& ex) {
        verses.push_back(ex.what());
    }
    return verses;
}

TEST_P(EveryLayout, GivesThePlainVersesInRunsToo)
{
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        std::mt19937 random(seed);
        const MadeText made = makeText(GetParam(), 1 + static_cast<unsigned int>(random() % 30), random);
        const auto count = static_cast<unsigned int>(made.places.size());
        for (const std::size_t blockBytes :
             {std::size_t(1), std::size_t(40), CVerseCursor::defaultBlockBytes}) {
            VerseFiles files(made.bytes, made.places);
            EXPECT_EQ(versesOfRuns(files.text, count, blockBytes), plainVerses(made, 0, count))
                << "seed " << seed;
        }
    }
}

} // namespace
