// The tool's interpretation of records of _Diff_.txt compared with the engine's.

#include "diff_effect.h"

#include "diff_records.h"
#include "temp_folder.h"
#include "tolvo_bible/diff.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using namespace Kedrin::ModTool;
using Kedrin::Tolvo::CDiff;
using Kedrin::Tolvo::CRef;

constexpr int leastOffset = std::numeric_limits<int>::min();

/// Few books, chapters and verses, so that records overlap; some offsets wrap.
std::vector<DiffRecord> randomRecords(std::mt19937& random)
{
    const auto pick = [&](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
    const auto number = [&](int to) { return static_cast<unsigned int>(pick(0, 19) == 0 ? 0 : pick(1, to)); };
    std::vector<DiffRecord> records;
    for (int i = 0; i < 6; ++i)
        records.push_back(
            {number(3), number(3), number(4), pick(-1, 1), pick(0, 19) == 0 ? leastOffset : pick(-3, 3)});
    return records;
}

std::string textOf(const std::vector<DiffRecord>& records)
{
    std::string text;
    for (const DiffRecord& record : records)
        text += diffRecordText(record) + '\n';
    return text;
}

ChapterVerse positionOf(const CRef& ref) { return {ref.chapter(), ref.verse()}; }

TEST(DiffEffect, MovesVersesAsTheEngineDoes)
{
    std::mt19937 random(20240);
    const test_support::TempFolder folder;
    unsigned int movedCount = 0;
    for (int round = 0; round < 300; ++round) {
        const std::vector<DiffRecord> records = randomRecords(random);
        const CDiff engine(folder.write("_Diff_.txt", textOf(records)).c_str());
        const CNumberingShifts shifts = CDiffEffect(records).shifts();
        for (unsigned int i = 0; i < 4 * 3 * 5; ++i) {
            const CRef ref(i / 15, i / 5 % 3, i % 5);
            const ChapterVerse global = positionOf(engine.toGlobal(ref)),
                               local = positionOf(engine.toLocal(ref));
            ASSERT_EQ(shifts.toGlobal(ref.bookID(), positionOf(ref)), global) << textOf(records);
            ASSERT_EQ(shifts.toLocal(ref.bookID(), positionOf(ref)), local) << textOf(records);
            movedCount += global != positionOf(ref) || local != positionOf(ref);
        }
    }
    EXPECT_GT(movedCount, 600u) << "the records shift something";
}

TEST(DiffEffect, CountsTheVersesThatTheEngineMapsBothWays)
{
    std::mt19937 random(20241);
    const test_support::TempFolder folder;
    unsigned int all = 0;
    for (int round = 0; round < 200; ++round) {
        const std::vector<DiffRecord> records = randomRecords(random);
        const CDiff engine(folder.write("_Diff_.txt", textOf(records)).c_str());
        std::vector<VersePair> pairs;
        unsigned int roundTrips = 0;
        for (unsigned int i = 0; i < 60; ++i) {
            const auto pick = [&](unsigned int below) { return static_cast<unsigned int>(random() % below); };
            const VersePair pair{pick(3), {1, pick(5)}, pick(3), {1, pick(5)}};
            pairs.push_back(pair);
            roundTrips +=
                positionOf(engine.toGlobal({pair.globalBook, pair.local.chapter, pair.local.verse})) ==
                    pair.global &&
                positionOf(engine.toLocal({pair.localBook, pair.global.chapter, pair.global.verse})) ==
                    pair.local;
        }
        ASSERT_EQ(CDiffEffect(records).shifts().roundTripCount(pairs), roundTrips) << textOf(records);
        all += roundTrips;
    }
    EXPECT_GT(all, 500u) << "the made verses are kept by some records";
}

TEST(DiffEffect, ARecordWithoutEffectChangesNothing)
{
    std::mt19937 random(7);
    unsigned int idleCount = 0;
    for (int round = 0; round < 300; ++round) {
        const std::vector<DiffRecord> records = randomRecords(random);
        const CDiffEffect effect(records);
        const CNumberingShifts whole = effect.shifts();
        const std::set<std::uint64_t> effective = effect.effectiveRecords({0, 1, 2});
        for (std::size_t idle = 0; idle < records.size(); ++idle) {
            if (effective.contains(idle))
                continue;
            ++idleCount;
            std::vector<DiffRecord> others = records;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(idle));
            const CNumberingShifts less = CDiffEffect(others).shifts();
            for (unsigned int book = 0; book < 3; ++book) {
                ASSERT_EQ(whole[book].toGlobal, less[book].toGlobal) << textOf(records) << idle;
                ASSERT_EQ(whole[book].toLocal, less[book].toLocal) << textOf(records) << idle;
            }
        }
    }
    EXPECT_GT(idleCount, 500u);
}

TEST(DiffEffect, ARecordWithEffectIsNeededWhereItHidesOrShifts)
{
    const std::vector<DiffRecord> records{{1, 2, 1, 0, 0}, {1, 2, 5, 0, 1}, {2, 2, 1, 0, 0}, {3, 3, 1, 0, 1}};
    EXPECT_EQ(CDiffEffect(records).effectiveRecords({0, 1, 2}), (std::set<std::uint64_t>{0}))
        << "the first hides the second, the third shifts nothing, the fourth is of another chapter";
    EXPECT_EQ(CDiffEffect(records).effectiveRecords({}), std::set<std::uint64_t>());
}

TEST(DiffEffect, BooksBeyondTheLastAreIgnored)
{
    CDiffEffect effect({{globalBooksCount + 1, 2, 1, 0, 1}, {0, 2, 1, 0, 1}, {globalBooksCount, 2, 1, 0, 1}});
    EXPECT_EQ(effect.effectiveRecords({globalBooksCount, globalBooksCount - 1, 4294967295u}),
              (std::set<std::uint64_t>{2}));
}

} // namespace
