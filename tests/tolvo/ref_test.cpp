#include "tolvo_ref.h"

#include "thrown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;

/// Two books, "Бит" and "Изх" in Windows-1251; throws `thrown` if it is set.
class TwoTitles : public ITitles
{
public:
    std::string fullTitle(unsigned int) const override { return "full"; }
    std::string shortTitle(unsigned int) const override { return "short"; }
    std::string abbreviatedTitle(unsigned int bookID) const override
    {
        if (bookID == 2)
            throw std::out_of_range("no such book");
        if (bookID == 3)
            throw std::runtime_error("titles lost");
        return bookID == 0 ? "\xC1\xE8\xF2" : "\xC8\xE7\xF5";
    }
};

struct Numbers
{
    unsigned int book, chapter, verse;
    bool operator==(const Numbers&) const = default;
};

Numbers numbersOf(const CRef& ref) { return {ref.bookID(), ref.chapter(), ref.verse()}; }

bool isUnknown(const CRef& ref) { return !ref.isGlobal() && !ref.isLocal() && !ref.isNull(); }

TEST(Ref, DefaultIsNull)
{
    const CRef ref;
    EXPECT_TRUE(ref.isNull());
    EXPECT_FALSE(ref.isGlobal());
    EXPECT_FALSE(ref.isLocal());
}

TEST(Ref, ThreeNumbersAreOfUnknownType)
{
    const CRef ref(1, 2, 3);
    EXPECT_TRUE(isUnknown(ref));
    EXPECT_EQ(numbersOf(ref), (Numbers{1, 2, 3}));
}

TEST(Ref, FlagSaysGlobalOrLocal)
{
    const CRef global(1, 2, 3, true);
    const CRef local(1, 2, 3, false);
    EXPECT_TRUE(global.isGlobal() && !global.isLocal() && !global.isNull());
    EXPECT_TRUE(local.isLocal() && !local.isGlobal() && !local.isNull());
    EXPECT_EQ(numbersOf(global), (Numbers{1, 2, 3}));
    EXPECT_EQ(numbersOf(local), (Numbers{1, 2, 3}));
}

TEST(Ref, RetypingKeepsNumbersAndIgnoresTheOldType)
{
    const CRef local(CRef(1, 2, 3, true), false);
    EXPECT_TRUE(local.isLocal());
    EXPECT_EQ(numbersOf(local), (Numbers{1, 2, 3}));
    EXPECT_TRUE(CRef(CRef(1, 2, 3, false), true).isGlobal());
    EXPECT_TRUE(CRef(CRef(), true).isGlobal());
}

TEST(Ref, CopyAndAssignmentKeepTheType)
{
    const CRef global(1, 2, 3, true);
    const CRef copy(global);
    CRef assigned;
    assigned = global;
    EXPECT_TRUE(copy.isGlobal());
    EXPECT_TRUE(assigned.isGlobal());
    EXPECT_EQ(numbersOf(assigned), (Numbers{1, 2, 3}));
}

TEST(Ref, TypeNumbersAreFixed)
{
    EXPECT_EQ(CRef::refUnknown, 0);
    EXPECT_EQ(CRef::refGlobal, 1);
    EXPECT_EQ(CRef::refLocal, 2);
    EXPECT_EQ(CRef::refNull, 3);
}

TEST(Ref, OrderIsByBookThenChapterThenVerse)
{
    EXPECT_LT(CRef(0, 5, 9), CRef(1, 0, 0));
    EXPECT_FALSE(CRef(1, 0, 0) < CRef(0, 5, 9));
    EXPECT_LT(CRef(1, 2, 9), CRef(1, 3, 0));
    EXPECT_LT(CRef(1, 2, 3), CRef(1, 2, 4));
    EXPECT_FALSE(CRef(1, 2, 3) < CRef(1, 2, 3));
}

TEST(Ref, OrderComparesUnsigned)
{
    EXPECT_LT(CRef(0, 0, 5), CRef(0, 0, 4294967295u));
    EXPECT_LT(CRef(0, 5, 0), CRef(0, 4294967295u, 0));
    EXPECT_LT(CRef(5, 0, 0), CRef(4294967295u, 0, 0));
}

TEST(Ref, TypeTakesNoPartInOrder)
{
    EXPECT_FALSE(CRef(2, 3, 4) < CRef(2, 3, 4, true));
    EXPECT_FALSE(CRef(2, 3, 4, true) < CRef(2, 3, 4));
    const std::map<CRef, int> oneEntry = {{CRef(2, 3, 4, false), 1}, {CRef(2, 3, 4, true), 2}};
    EXPECT_EQ(oneEntry.size(), 1u);
}

// The difference tables use this comparison of a verse with a chapter to find out whether an entry applies to
// a reference; an ordinary comparison would shift other chapters than modules expect.
TEST(Ref, EqualityComparesThisVerseWithTheOthersChapter)
{
    EXPECT_TRUE(CRef(2, 3, 3) == CRef(2, 3, 7));
    EXPECT_FALSE(CRef(2, 3, 7) == CRef(2, 3, 3));
    const CRef ref(2, 3, 4);
    EXPECT_FALSE(ref == CRef(2, 3, 4));
}

TEST(Ref, EqualityNeedsBookAndChapter)
{
    EXPECT_FALSE(CRef(1, 3, 3) == CRef(2, 3, 3));
    EXPECT_FALSE(CRef(2, 4, 3) == CRef(2, 3, 3));
    EXPECT_TRUE(CRef(2, 3, 3) == CRef(2, 3, 3));
}

TEST(Ref, TypeTakesNoPartInEquality)
{
    EXPECT_TRUE(CRef(2, 3, 3, true) == CRef(2, 3, 7, false));
    EXPECT_TRUE(CRef(2, 3, 3) == CRef(2, 3, 3, true));
}

// Verses count from 0, so 1 is the second verse; compared with a chapter by operator==, it makes the
// difference tables apply only to chapter index 1.
TEST(Ref, ChaptersBeginningIsVerseIndexOne)
{
    const CRef beginning = CRef(4, 10, 7, true).chaptersBeginning();
    EXPECT_EQ(numbersOf(beginning), (Numbers{4, 10, 1}));
    EXPECT_TRUE(isUnknown(beginning));
}

TEST(Ref, BooksBeginningIsChapterAndVerseZero)
{
    const CRef beginning = CRef(4, 10, 7, true).booksBeginning();
    EXPECT_EQ(numbersOf(beginning), (Numbers{4, 0, 0}));
    EXPECT_TRUE(isUnknown(beginning));
}

TEST(RefDelta, TwoNumbersLeaveTheBook)
{
    const CRefDelta delta(-1, 2);
    EXPECT_EQ(delta.bookDelta(), 0);
    EXPECT_EQ(delta.chapterDelta(), -1);
    EXPECT_EQ(delta.verseDelta(), 2);
}

TEST(RefDelta, ThreeNumbersShiftTheBookToo)
{
    const CRefDelta delta(3, -1, 2);
    EXPECT_EQ(delta.bookDelta(), 3);
    EXPECT_EQ(delta.chapterDelta(), -1);
    EXPECT_EQ(delta.verseDelta(), 2);
    EXPECT_EQ(numbersOf(CRef(4, 10, 0) + delta), (Numbers{7, 9, 2}));
}

TEST(RefDelta, SumShiftsFieldByFieldAndIsOfUnknownType)
{
    const CRef sum = CRef(4, 10, 0, true) + CRefDelta(-1, 2);
    EXPECT_EQ(numbersOf(sum), (Numbers{4, 9, 2}));
    EXPECT_TRUE(isUnknown(sum));
}

TEST(RefDelta, SumWrapsBelowZero)
{
    EXPECT_EQ((CRef(0, 0, 0) + CRefDelta(0, -1)).verse(), 4294967295u);
    EXPECT_EQ((CRef(0, 0, 0) + CRefDelta(-1, 0)).chapter(), 4294967295u);
}

TEST(RefDelta, SumWrapsAboveTheLargestNumber)
{
    EXPECT_EQ((CRef(0, 0, 4294967295u) + CRefDelta(0, 1)).verse(), 0u);
}

TEST(RefDelta, SumDoesNotCarryIntoTheChapter)
{
    EXPECT_EQ(numbersOf(CRef(0, 2, 30) + CRefDelta(0, 100)), (Numbers{0, 2, 130}));
}

TEST(RefToString, CountsChapterAndVerseFromOne)
{
    const TwoTitles titles;
    EXPECT_EQ(CRef(0, 0, 0).toString(&titles), "\xC1\xE8\xF2 1:1");
    EXPECT_EQ(CRef(0, 0, 2).toString(&titles), "\xC1\xE8\xF2 1:3");
    EXPECT_EQ(CRef(1, 118, 175).toString(&titles), "\xC8\xE7\xF5 119:176");
}

TEST(RefToString, PrintsEveryTypeAlike)
{
    const TwoTitles titles;
    EXPECT_EQ(CRef(1, 4, 8, true).toString(&titles), "\xC8\xE7\xF5 5:9");
    EXPECT_EQ(CRef(1, 4, 8, false).toString(&titles), "\xC8\xE7\xF5 5:9");
}

TEST(RefToString, AddsOneModuloTheNumbersSize)
{
    const TwoTitles titles;
    EXPECT_EQ(CRef(0, 4294967295u, 4294967294u).toString(&titles), "\xC1\xE8\xF2 0:4294967295");
}

TEST(RefToString, PassesTheTitlesOutOfRange)
{
    const TwoTitles titles;
    EXPECT_EQ(messageOf<std::out_of_range>([&] { CRef(2, 0, 0).toString(&titles); }), "no such book");
}

TEST(RefToStringDeathTest, EndsTheProgramOnAnyOtherException)
{
    const TwoTitles titles;
    EXPECT_DEATH(CRef(3, 0, 0).toString(&titles),
                 testing::StartsWith("CRef::toString() let out an exception that its contract does not name: "
                                     "titles lost\n"));
}

} // namespace
