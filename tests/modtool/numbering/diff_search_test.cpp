// The records of _Diff_.txt, checked with the engine's reader of that file.

#include "diff_search.h"

#include "diff_records.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace Kedrin::ModTool;
using Kedrin::Tolvo::CDiff;
using Kedrin::Tolvo::CRef;

std::string recordsText(const std::vector<DiffRecord>& records)
{
    std::string text;
    for (const DiffRecord& record : records)
        text += diffRecordText(record) + '\n';
    return text;
}

bool isAt(const CRef& ref, unsigned int book, ChapterVerse position)
{
    return ref.bookID() == book && ref.chapter() == position.chapter && ref.verse() == position.verse;
}

class DiffSearch : public testing::Test
{
protected:
    CDiff load(const std::vector<DiffRecord>& records) const
    {
        return CDiff(m_folder.write("_Diff_.txt", recordsText(records)).c_str());
    }

    /// How many of the pairs map correctly with the engine, used like in CBible: the book is mapped first.
    unsigned int roundTripsWith(const std::vector<DiffRecord>& records,
                                const std::vector<VersePair>& pairs) const
    {
        const CDiff diff = load(records);
        unsigned int roundTrips = 0;
        for (const VersePair& p : pairs)
            roundTrips +=
                isAt(diff.toGlobal(CRef(p.globalBook, p.local.chapter, p.local.verse)), p.globalBook,
                     p.global) &&
                isAt(diff.toLocal(CRef(p.localBook, p.global.chapter, p.global.verse)), p.localBook, p.local);
        return roundTrips;
    }

    const test_support::TempFolder m_folder;
};

TEST_F(DiffSearch, RecordsShiftAsTheyPromise)
{
    constexpr unsigned int book = 4, verse = 20;
    unsigned int impossible = 0;
    for (int i = 0; i < 4 * 7 * 4 * 7; ++i) {
        const Shift toGlobal{i % 4 - 1, i / 4 % 7 - 3};
        const Shift toLocal{i / 28 % 4 - 1, i / 112 % 7 - 3};
        const auto records = recordsFor(book, toGlobal, toLocal);
        if (!records) {
            ++impossible;
            EXPECT_TRUE(toGlobal.chapters == 0 && toLocal.chapters == 0) << "only inside the chapter";
            continue;
        }
        const CDiff diff = load(*records);
        const auto moved = [&](Shift shift) {
            return ChapterVerse{1u + static_cast<unsigned int>(shift.chapters),
                                verse + static_cast<unsigned int>(shift.verses)};
        };
        ASSERT_TRUE(isAt(diff.toGlobal(CRef(book, 1, verse)), book, moved(toGlobal)) &&
                    isAt(diff.toLocal(CRef(book, 1, verse)), book, moved(toLocal)))
            << "to global " << toGlobal.chapters << ' ' << toGlobal.verses << ", to local "
            << toLocal.chapters << ' ' << toLocal.verses << ":\n"
            << recordsText(*records);
        for (const ChapterVerse other : {ChapterVerse{0, verse}, ChapterVerse{2, verse}}) {
            ASSERT_TRUE(isAt(diff.toGlobal(CRef(book, other.chapter, other.verse)), book, other));
            ASSERT_TRUE(isAt(diff.toLocal(CRef(book, other.chapter, other.verse)), book, other));
        }
        ASSERT_TRUE(isAt(diff.toGlobal(CRef(book + 1, 1, verse)), book + 1, {1, verse}));
        ASSERT_TRUE(isAt(diff.toLocal(CRef(book - 1, 1, verse)), book - 1, {1, verse}));
    }
    EXPECT_LT(impossible, 49u / 2);
}

TEST_F(DiffSearch, NoShiftNeedsNoRecord) { EXPECT_TRUE(recordsFor(3, {0, 0}, {0, 0}).value().empty()); }

TEST_F(DiffSearch, NothingIsRecordedWhereNothingCanBeGained)
{
    std::vector<VersePair> pairs;
    for (unsigned int verse = 0; verse < 20; ++verse) // third chapters cannot be shifted
        pairs.push_back({0, {2, verse + 1}, 0, {2, verse}});
    DiffFigures figures;
    EXPECT_TRUE(chooseDiffRecords(pairs, figures).empty());
    EXPECT_EQ(figures.roundTrips, 0u);
    EXPECT_EQ(figures.roundTripsWithoutRecords, 0u);
}

TEST_F(DiffSearch, ShiftServesTheMajorityOfAChapter)
{
    std::vector<VersePair> pairs;
    for (unsigned int verse = 0; verse < 10; ++verse)
        pairs.push_back({0, {1, verse}, 0, {1, verse < 4 ? verse : verse + 2}});
    DiffFigures figures;
    EXPECT_EQ(roundTripsWith(chooseDiffRecords(pairs, figures), pairs), 6u);
    EXPECT_EQ(figures.roundTrips, 6u);
    EXPECT_EQ(figures.roundTripsWithoutRecords, 4u);
}

TEST_F(DiffSearch, MappingBackIsRecordedUnderTheLocalNumber)
{
    std::vector<VersePair> pairs;
    for (unsigned int verse = 0; verse < 10; ++verse)
        pairs.push_back({0, {1, verse + 1}, 50, {1, verse}});
    for (unsigned int verse = 0; verse < 12; ++verse)
        pairs.push_back({1, {1, verse}, 0, {1, verse}}); // its global number is the local number of the other
    DiffFigures figures;
    EXPECT_EQ(roundTripsWith(chooseDiffRecords(pairs, figures), pairs), 22u);
    EXPECT_EQ(figures.roundTripsWithoutRecords, 12u);
}

/// Books in any order, chapters split and joined, verses shifted.
std::vector<VersePair> madePairs(std::mt19937& random)
{
    std::vector<unsigned int> globals{0, 1, 2, 3, 4, 5};
    std::shuffle(globals.begin(), globals.end(), random);
    std::vector<VersePair> pairs;
    for (unsigned int book = 0; book < 1 + random() % 6; ++book)
        for (unsigned int chapter = 0; chapter < 4; ++chapter) {
            const auto chapters = static_cast<unsigned int>(random() % 4 == 0 ? random() % 3 : 1);
            const auto verses = static_cast<unsigned int>(random() % 4);
            const auto from = static_cast<unsigned int>(random() % 12);
            for (unsigned int verse = 0; verse < 10; ++verse)
                pairs.push_back({book,
                                 {chapter, verse + 3},
                                 globals[book],
                                 {chapter + chapters - (chapter + chapters > 0 ? 1 : 0),
                                  verse < from ? verse + 3 : verse + verses}});
        }
    return pairs;
}

TEST_F(DiffSearch, UnsharedNumberNeedsNoSecondRecord)
{
    std::vector<VersePair> pairs;
    for (unsigned int verse = 0; verse < 10; ++verse)
        pairs.push_back({0, {1, verse + 1}, 50, {1, verse}});
    DiffFigures figures;
    const std::vector<DiffRecord> records = chooseDiffRecords(pairs, figures);
    EXPECT_EQ(recordsText(records), "1 2 2 0 -1\n51 2 2 0 -1\n");
    EXPECT_EQ(roundTripsWith(records, pairs), 10u);
    for (VersePair& pair : pairs)
        std::swap(pair.local, pair.global);
    EXPECT_EQ(recordsText(chooseDiffRecords(pairs, figures)), "1 2 1 0 1\n51 2 1 0 1\n");
}

TEST_F(DiffSearch, NoRecordIsIdle)
{
    std::mt19937 random(20240301);
    for (unsigned int round = 0; round < 300; ++round) {
        std::vector<VersePair> pairs = madePairs(random);
        for (VersePair& pair : pairs)
            pair.globalBook += round % 3; // some numbers belong only to a local or only to a global book
        DiffFigures figures;
        const std::vector<DiffRecord> records = chooseDiffRecords(pairs, figures);
        for (std::size_t i = 0; i < records.size(); ++i) {
            std::vector<DiffRecord> others = records;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
            ASSERT_LT(roundTripsWith(others, pairs), figures.roundTrips)
                << "round " << round << ", record " << i << '\n'
                << recordsText(records);
        }
    }
}

TEST_F(DiffSearch, NeverMapsFewerThanWithoutRecordsAndCountsAsTheEngine)
{
    std::mt19937 random(20240229);
    unsigned int gains = 0;
    for (unsigned int round = 0; round < 500; ++round) {
        const std::vector<VersePair> pairs = madePairs(random);
        DiffFigures figures;
        const std::vector<DiffRecord> records = chooseDiffRecords(pairs, figures);
        ASSERT_EQ(roundTripsWith(records, pairs), figures.roundTrips) << "round " << round << '\n'
                                                                      << recordsText(records);
        ASSERT_EQ(roundTripsWith({}, pairs), figures.roundTripsWithoutRecords) << "round " << round;
        ASSERT_GE(figures.roundTrips, figures.roundTripsWithoutRecords) << "round " << round;
        if (figures.roundTrips == figures.roundTripsWithoutRecords) {
            ASSERT_TRUE(records.empty()) << "round " << round;
        }
        gains += figures.roundTrips > figures.roundTripsWithoutRecords;
    }
    EXPECT_GT(gains, 100u) << "the made pairs offer something to gain";
}

} // namespace
