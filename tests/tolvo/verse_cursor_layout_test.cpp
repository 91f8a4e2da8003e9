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

/// Passes over verses up to a random position after each verse, and checks that none of those passed ends later. Ends
/// where the text cannot be read.
void passThrough(const MadeText& made, std::mt19937& random, std::size_t blockBytes, bool isContiguous)
{
    const auto endOf = [&](unsigned int verse) {
        return made.places[verse] + 1 + plainVerses(made, verse, 1)[0].size(); // "=" and the verse
    };
    const auto verseCount = static_cast<unsigned int>(made.places.size());
    VerseFiles files(made.bytes, made.places);
    CVerseCursor cursor(files.text, 0, verseCount, blockBytes);
    std::size_t clearUpTo = 0;
    for (unsigned int expected = 0; expected < verseCount; ++expected) {
        bool isThere = false;
        try {
            isThere = cursor.next();
        } catch (const std::ios_base::failure&) {
            return;
        }
        for (; expected < (isThere ? cursor.verseNum() : verseCount); ++expected)
            ASSERT_LT(endOf(expected), clearUpTo) << expected << " was passed";
        if (!isThere)
            return;
        ASSERT_TRUE(!isContiguous || expected == 0 || endOf(expected) >= clearUpTo)
            << expected << " was not passed";
        ASSERT_EQ("=" + std::string(cursor.text()), plainVerses(made, expected, 1)[0]);
        const char* const textEnd = cursor.text().data() + cursor.text().size();
        const auto left = static_cast<unsigned int>(cursor.blockEnd() - textEnd);
        const auto passed = static_cast<std::ptrdiff_t>(random() % (left + 1));
        clearUpTo = endOf(expected) + static_cast<std::size_t>(passed);
        cursor.passBefore(textEnd + passed);
        ASSERT_EQ(cursor.verseNum(), expected) << "stays";
    }
}

TEST_P(EveryLayout, VersesThatEndBeforeAPositionCanBePassedOver)
{
    const bool isContiguous = GetParam() == Layout::contiguous;
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        std::mt19937 random(seed);
        const MadeText made = makeText(GetParam(), 1 + static_cast<unsigned int>(random() % 30), random);
        for (const std::size_t blockBytes :
             {std::size_t(1), std::size_t(40), CVerseCursor::defaultBlockBytes})
            ASSERT_NO_FATAL_FAILURE(passThrough(made, random, blockBytes, isContiguous)) << "seed " << seed;
    }
}

} // namespace
