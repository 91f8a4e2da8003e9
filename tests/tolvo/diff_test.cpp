#include "tolvo_bible/diff.h"

#include "bad_file.h"

#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;
using test_support::TempFolder;

constexpr unsigned int minusFour = 4294967292u;

CDiff made(const std::string& text)
{
    const TempFolder folder;
    return CDiff(folder.write("f", text).c_str());
}

/// The numbers and the type of a reference, as a text.
std::string textOf(const CRef& ref)
{
    const char* type = ref.isGlobal() ? "global " : ref.isLocal() ? "local " : ref.isNull() ? "null " : "";
    return type + std::to_string(ref.bookID()) + " " + std::to_string(ref.chapter()) + ":" +
           std::to_string(ref.verse());
}

TEST(Diff, ShiftsTheSecondChapterToGlobalNumbers)
{
    const CDiff diff = made("19 2 5 1 -4");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 7))), "global 18 2:3");
}

TEST(Diff, AShiftBelowVerseZeroWraps)
{
    const CRef global = made("19 2 5 1 -4").toGlobal(CRef(18, 1, 0));
    EXPECT_EQ(global.chapter(), 2u);
    EXPECT_EQ(global.verse(), minusFour);
}

// Only chapter index 1 can match: CRef compares the literal verse 1 of chaptersBeginning with a chapter.
TEST(Diff, AnyOtherChapterStays)
{
    const CDiff diff = made("19 9 21 1 -20");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 3))), "global 18 1:3");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 8, 20))), "global 18 8:20");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 8, 25))), "global 18 8:25");
    EXPECT_EQ(textOf(diff.toLocal(CRef(18, 9, 0))), "local 18 9:0");
}

TEST(Diff, ARecordOfTheFirstChapterShiftsNothing)
{
    const CDiff diff = made("19 1 1 0 1");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 0, 0))), "global 18 0:0");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 0))), "global 18 1:0");
}

// The reverse mapping is looked up by the global chapter, which is the third here and so is not shifted.
TEST(Diff, ReverseMappingNeedsTheGlobalChapterToBeTheSecond)
{
    const CDiff diff = made("19 2 5 1 -4");
    EXPECT_EQ(textOf(diff.toLocal(CRef(18, 2, 0))), "local 18 2:0");
    EXPECT_EQ(textOf(diff.toLocal(CRef(18, 1, 0))), "local 18 1:0");
    EXPECT_EQ(textOf(made("19 3 5 -1 -4").toLocal(CRef(18, 1, 0))), "local 18 2:4");
}

TEST(Diff, VersesMovedWithinTheSecondChapterComeBack)
{
    const CDiff diff = made("19 2 2 0 -1");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 5))), "global 18 1:4");
    EXPECT_EQ(textOf(diff.toLocal(CRef(18, 1, 4))), "local 18 1:5");
}

TEST(Diff, TheVerseOfARecordDoesNotBoundItsShift)
{
    const CDiff diff = made("19 2 5 0 10");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 0))), "global 18 1:10");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 4294967295u))), "global 18 1:9");
}

TEST(Diff, OtherBooksStay)
{
    const CDiff diff = made("19 2 5 1 -4");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(17, 1, 7))), "global 17 1:7");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(19, 1, 7))), "global 19 1:7");
}

TEST(Diff, BooksAreNeverChanged) { EXPECT_EQ(made("19 2 5 1 -4").toGlobal(CRef(18, 1, 7)).bookID(), 18u); }

// The tables are searched in the order of their keys, and the first entry of a chapter is used for all of it.
TEST(Diff, TheEntryWithTheLowestVerseServesItsWholeChapter)
{
    const CDiff diff = made("19 2 9 0 3\n19 2 5 0 1\n19 2 7 0 2\n");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 20))), "global 18 1:21");
}

TEST(Diff, ReverseMappingUsesTheLowestGlobalVerse)
{
    const CDiff diff = made("19 2 5 0 10\n19 2 9 0 -8\n"); // global verses 14 and 0, from 0
    EXPECT_EQ(textOf(diff.toLocal(CRef(18, 1, 20))), "local 18 1:28");
}

TEST(Diff, OfRecordsForOneVerseTheFirstStays)
{
    const CDiff diff = made("19 2 5 0 1\n19 2 5 0 7\n");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 0))), "global 18 1:1");
    const CDiff back = made("19 2 5 0 1\n19 2 4 0 2\n"); // both map to global verse 5, from 0
    EXPECT_EQ(textOf(back.toLocal(CRef(18, 1, 9))), "local 18 1:8");
}

TEST(Diff, WithoutAMatchOnlyTheTypeChanges)
{
    const CDiff diff = made("");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(3, 1, 2, false))), "global 3 1:2");
    EXPECT_EQ(textOf(diff.toLocal(CRef(3, 1, 2, true))), "local 3 1:2");
}

TEST(Diff, ANullReferenceGetsTheTypeAskedFor)
{
    const CDiff diff = made("19 2 5 1 -4");
    EXPECT_TRUE(diff.toGlobal(CRef()).isGlobal());
    EXPECT_TRUE(diff.toLocal(CRef()).isLocal());
}

TEST(Diff, TheLookupKeepsTheTypeOnlyWithoutAMatch)
{
    const CDiff diff = made("");
    const CDiff::Table table = {{CRef(18, 1, 4), CRefDelta(1, -4)}};
    EXPECT_EQ(textOf(diff.convertWithMap(CRef(18, 1, 7, true), table)), "18 2:3");
    EXPECT_EQ(textOf(diff.convertWithMap(CRef(18, 2, 7, true), table)), "global 18 2:7");
    EXPECT_EQ(textOf(diff.convertWithMap(CRef(18, 2, 7, false), table)), "local 18 2:7");
    EXPECT_EQ(textOf(diff.convertWithMap(CRef(18, 1, 7, false), {})), "local 18 1:7");
}

TEST(DiffFile, LineBreaksMeanNothing)
{
    const CDiff diff = made("19\t2\r\n5 0\n\n+1 20 2 1 0 -1\r\n");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 0))), "global 18 1:1");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(19, 1, 1))), "global 19 1:0");
}

TEST(DiffFile, ThatIsEmptyShiftsNothing)
{
    for (const char* text : {"", "\n", "  \r\n"})
        EXPECT_EQ(textOf(made(text).toGlobal(CRef(0, 1, 0))), "global 0 1:0");
}

TEST(DiffFile, ReadingStopsAtTheFirstRecordThatIsNotWhole)
{
    for (const char* rest : {"20 2 5 0", "20 2 5 0 x", "x 20 2 5 0 1", "20 2 -5 0 1", "20,2,5,0,1",
                             "20 2 5 0 2147483648 20 2 5 0 1", "4294967296 2 5 0 1 20 2 5 0 1"}) {
        const CDiff diff = made("19 2 5 0 1\n" + std::string(rest));
        EXPECT_EQ(textOf(diff.toGlobal(CRef(18, 1, 0))), "global 18 1:1") << rest;
        EXPECT_EQ(textOf(diff.toGlobal(CRef(19, 1, 0))), "global 19 1:0") << rest;
    }
}

TEST(DiffFile, NumbersAtTheirBoundsWrap)
{
    const CDiff diff = made("0 2 5 0 -2147483648\n");
    EXPECT_EQ(textOf(diff.toGlobal(CRef(4294967295u, 1, 0))), "global 4294967295 1:2147483648");
    EXPECT_EQ(textOf(diff.toLocal(CRef(4294967295u, 1, 0))), "local 4294967295 1:2147483648");
}

TEST(DiffFile, ThatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder))
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CDiff diff(bad.path.c_str()); }),
                  "CDiff::CDiff(): error opening file " + bad.path)
            << bad.defect;
}

TEST(DiffFile, SpoiledAnywhereItIsRead)
{
    test_support::walkSpoiled("19 2 5 1 -4\r\n19 9 21 1 -20\r\n40 2 1 0 +1\r\n", {}, test_support::walkDiff);
}

} // namespace
