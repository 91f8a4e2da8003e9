#include "tolvo_bible/bible_structure.h"

#include "allocation_watch.h"
#include "bad_file.h"

#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;
using test_support::TempFolder;

constexpr const char* badBook = "CBibleSructure::ValidateBookID(): bookID out of range";
constexpr const char* badChapter = "CBibleSructure::ValidateChapterID(): chapter out of range";
constexpr const char* badVerse = "CBibleSructure::ValidateRef(): verse out of range";
constexpr const char* badNum = "CBibleSructure::ValidateNum(): verse number out of range";
constexpr const char* opening = "CBibleSructure::CBibleSructure(): error opening file ";
constexpr const char* reading = "CBibleSructure::CBibleSructure(): error reading file ";

const std::string twoBooks = "3 31 25 24\n2 10 12\n";

CBibleStructure made(const std::string& text, unsigned int booksCount)
{
    const TempFolder folder;
    return CBibleStructure(folder.write("f", text).c_str(), booksCount);
}

std::string refusalOf(const std::string& text, unsigned int booksCount)
{
    const TempFolder folder;
    const std::string path = folder.write("f", text);
    const std::string refusal =
        messageOf<std::ios_base::failure>([&] { CBibleStructure(path.c_str(), booksCount); });
    EXPECT_TRUE(refusal.ends_with(path)) << refusal;
    return refusal.substr(0, refusal.size() - path.size());
}

template <typename Query>
std::string rangeError(Query query)
{
    return messageOf<std::out_of_range>(query);
}

struct Place
{
    unsigned int book, chapter, verse;
    bool operator==(const Place&) const = default;
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << place.book << " " << place.chapter << ":" << place.verse;
}

Place placeOf(const CBibleStructure& structure, unsigned int num)
{
    const CRef ref = structure.toRef(num);
    return {ref.bookID(), ref.chapter(), ref.verse()};
}

TEST(Structure, CountsBooksChaptersAndVerses)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(structure.booksCount(), 2u);
    EXPECT_EQ(structure.chaptersCount(0), 3u);
    EXPECT_EQ(structure.chaptersCount(1), 2u);
    EXPECT_EQ(structure.versesCount(0, 2), 24u);
    EXPECT_EQ(structure.versesCount(1, 0), 10u);
    EXPECT_EQ(structure.totalVersesCount(), 102u);
}

TEST(Structure, NumbersVersesThroughAllBooks)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(structure.toNum(CRef(0, 0, 0)), 0u);
    EXPECT_EQ(structure.toNum(CRef(0, 1, 0)), 31u);
    EXPECT_EQ(structure.toNum(CRef(0, 2, 23)), 79u);
    EXPECT_EQ(structure.toNum(CRef(1, 0, 0)), 80u);
    EXPECT_EQ(structure.toNum(CRef(1, 1, 11)), 101u);
}

TEST(Structure, GivesTheReferenceOfANumber)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(placeOf(structure, 0), (Place{0, 0, 0}));
    EXPECT_EQ(placeOf(structure, 79), (Place{0, 2, 23}));
    EXPECT_EQ(placeOf(structure, 80), (Place{1, 0, 0}));
    EXPECT_EQ(placeOf(structure, 101), (Place{1, 1, 11}));
    EXPECT_EQ(rangeError([&] { structure.toRef(102); }), badNum);
}

TEST(Structure, TheReferenceOfANumberIsOfUnknownType)
{
    const CRef ref = made(twoBooks, 2).toRef(80);
    EXPECT_FALSE(ref.isGlobal() || ref.isLocal() || ref.isNull());
}

TEST(Structure, EveryNumberComesBack)
{
    const CBibleStructure structure = made("1 1 3 2 1 7 2 4 5", 3);
    for (unsigned int num = 0; num < structure.totalVersesCount(); ++num)
        EXPECT_EQ(structure.toNum(structure.toRef(num)), num);
}

TEST(Structure, CountsTheVersesFromOneOn)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(structure.versesFrom(CRef(0, 0, 0)), 31u);
    EXPECT_EQ(structure.versesFrom(CRef(1, 1, 11)), 1u);
    EXPECT_EQ(structure.versesFrom(CRef(1, 1, 12)), 0u);
    EXPECT_EQ(structure.versesFrom(CRef(1, 2, 0)), 0u);
    EXPECT_EQ(structure.versesFrom(CRef(2, 0, 0)), 0u);
}

TEST(Structure, DoesNotLookAtTheTypeOfAReference)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(structure.toNum(CRef(1, 0, 3, true)), 83u);
    EXPECT_EQ(structure.toNum(CRef(1, 0, 3, false)), 83u);
}

// Callers rely on the misspelt class name, and on ValidateChapterID in the message of ValidateChapter.
TEST(Structure, SaysWhichPartOfAReferenceIsWrong)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(rangeError([&] { structure.toNum(CRef(2, 0, 0)); }), badBook);
    EXPECT_EQ(rangeError([&] { structure.toNum(CRef(0, 3, 0)); }), badChapter);
    EXPECT_EQ(rangeError([&] { structure.toNum(CRef(0, 0, 31)); }), badVerse);
    EXPECT_EQ(rangeError([&] { structure.toNum(CRef(4294967295u, 4294967295u, 4294967295u)); }), badBook);
    EXPECT_EQ(rangeError([&] { structure.toNum(CRef(0, 4294967295u, 4294967295u)); }), badChapter);
    EXPECT_EQ(rangeError([&] { structure.toNum(CRef(0, 0, 4294967295u)); }), badVerse);
}

TEST(Structure, QueriesValidateTheirNumbers)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_EQ(rangeError([&] { structure.chaptersCount(structure.booksCount()); }), badBook);
    EXPECT_EQ(rangeError([&] { structure.versesCount(0, 3); }), badChapter);
    EXPECT_EQ(rangeError([&] { structure.versesCount(2, 0); }), badBook);
}

TEST(Structure, ValidatorsThrowAndPass)
{
    const CBibleStructure structure = made(twoBooks, 2);
    EXPECT_NO_THROW(structure.ValidateBookID(1));
    EXPECT_NO_THROW(structure.ValidateChapter(1, 1));
    EXPECT_NO_THROW(structure.ValidateRef(CRef(1, 1, 11)));
    EXPECT_NO_THROW(structure.ValidateNum(101));
    EXPECT_EQ(rangeError([&] { structure.ValidateBookID(2); }), badBook);
    EXPECT_EQ(rangeError([&] { structure.ValidateChapter(2, 0); }), badBook);
    EXPECT_EQ(rangeError([&] { structure.ValidateChapter(1, 2); }), badChapter);
    EXPECT_EQ(rangeError([&] { structure.ValidateRef(CRef(1, 1, 12)); }), badVerse);
    EXPECT_EQ(rangeError([&] { structure.ValidateNum(102); }), badNum);
}

// Of entries that begin at the same number the first is used, although it has no verse: the binary search
// finds the first entry that is not below the number.
TEST(StructureTieBreak, AVerseAfterAnEmptyChapterIsPlacedInTheEmptyOne)
{
    const CBibleStructure structure = made("3 5 0 4", 1);
    EXPECT_EQ(placeOf(structure, 4), (Place{0, 0, 4}));
    EXPECT_EQ(placeOf(structure, 5), (Place{0, 1, 0}));
    EXPECT_EQ(rangeError([&] { structure.ValidateRef(structure.toRef(5)); }), badVerse);
}

TEST(StructureTieBreak, BeyondEqualBeginningsTheLastIsTaken)
{
    const CBibleStructure structure = made("4 5 0 0 4", 1);
    EXPECT_EQ(placeOf(structure, 5), (Place{0, 1, 0}));
    EXPECT_EQ(placeOf(structure, 6), (Place{0, 3, 1}));
    EXPECT_EQ(structure.toNum(CRef(0, 3, 1)), 6u);
}

TEST(StructureTieBreak, ABookWithoutChaptersInTheMiddleTakesTheNextBooksFirstVerse)
{
    const CBibleStructure structure = made("1 3 0 1 4", 3);
    EXPECT_EQ(placeOf(structure, 2), (Place{0, 0, 2}));
    EXPECT_EQ(placeOf(structure, 3), (Place{1, 0, 0}));
    EXPECT_EQ(rangeError([&] { structure.ValidateRef(structure.toRef(3)); }), badChapter);
    EXPECT_EQ(placeOf(structure, 4), (Place{2, 0, 1}));
}

TEST(StructureTieBreak, ABookWithoutChaptersAtTheStartTakesTheFirstVerse)
{
    const CBibleStructure structure = made("0 0 1 4", 3);
    EXPECT_EQ(placeOf(structure, 0), (Place{0, 0, 0}));
    EXPECT_EQ(rangeError([&] { structure.ValidateRef(structure.toRef(0)); }), badChapter);
    EXPECT_EQ(placeOf(structure, 1), (Place{2, 0, 1}));
}

TEST(StructureTieBreak, ABookWithoutChaptersAtTheEndTakesNothing)
{
    const CBibleStructure structure = made("1 4 0", 2);
    EXPECT_EQ(placeOf(structure, 3), (Place{0, 0, 3}));
    EXPECT_EQ(rangeError([&] { structure.toRef(4); }), badNum);
}

TEST(StructureTieBreak, ABookOfEmptyChaptersCountsAsOneWithoutVerses)
{
    const CBibleStructure structure = made("1 2 2 0 0 1 3", 3);
    EXPECT_EQ(placeOf(structure, 2), (Place{1, 0, 0}));
    EXPECT_EQ(placeOf(structure, 3), (Place{2, 0, 1}));
}

TEST(StructureFile, OfNoBooksIsNotLookedInto)
{
    for (const char* text : {"", "x", "3 1 1 1"}) {
        const CBibleStructure structure = made(text, 0);
        EXPECT_EQ(structure.booksCount(), 0u);
        EXPECT_EQ(structure.totalVersesCount(), 0u);
        EXPECT_EQ(rangeError([&] { structure.toRef(0); }), badNum);
        EXPECT_EQ(rangeError([&] { structure.chaptersCount(0); }), badBook);
    }
}

TEST(StructureFile, WhiteSpaceOfAnyKindSeparates)
{
    EXPECT_EQ(made("\r\n3\t31\n\n25 \r\n24 2\v10\f12", 2).totalVersesCount(), 102u);
}

TEST(StructureFile, WhatFollowsTheLastBookIsIgnored)
{
    EXPECT_EQ(made("1 5 rubbish", 1).totalVersesCount(), 5u);
    EXPECT_EQ(made("1 5 4294967295", 1).totalVersesCount(), 5u);
    EXPECT_EQ(made(twoBooks, 1).totalVersesCount(), 80u);
}

TEST(StructureFile, WithFewerNumbersThanItsBooksNeedIsRefused)
{
    EXPECT_EQ(refusalOf("", 1), reading);
    EXPECT_EQ(refusalOf("3 31 25\n", 1), reading);
    EXPECT_EQ(refusalOf(twoBooks, 3), reading);
}

TEST(StructureFile, WithATokenThatIsNoNumberIsRefused)
{
    for (const char* text : {"2 5 x", "x", "2,5,5", "2 5,5", "2 5 -1", "-1", "2 5 4294967296", "1.0 5"})
        EXPECT_EQ(refusalOf(text, 1), reading) << text;
}

TEST(StructureFile, WithMoreVersesThan32BitsCountIsRefused)
{
    EXPECT_EQ(made("1 4294967295", 1).totalVersesCount(), 4294967295u);
    EXPECT_EQ(refusalOf("2 4294967295 1", 1), reading);
}

TEST(StructureFile, ThatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder))
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CBibleStructure(bad.path.c_str(), 1); }),
                  opening + bad.path)
            << bad.defect;
}

TEST(StructureFile, SpoiledAnywhereItIsReadOrRefused)
{
    test_support::walkSpoiled(twoBooks, {reading},
                              [](const std::string& path) { return test_support::walkStructure(path, 2); });
}

TEST(StructureFile, HugeCountsTakeNoMemory)
{
    const TempFolder folder;
    for (const char* text : {"4294967295 1 1", "2 1 1 4294967295 1", "400000000 1 1", "1 1"}) {
        const std::string path = folder.write("f", text);
        const test_support::AllocationWatch watch;
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CBibleStructure(path.c_str(), 4000000000u); }),
                  reading + path);
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CBibleStructure(path.c_str(), 2); }),
                  reading + path);
        EXPECT_LT(watch.total(), 16384u) << text;
    }
}

TEST(Structure, StartNumbersCanBeCalculatedAgain)
{
    const TempFolder folder;
    CBibleStructure structure(folder.write("f", twoBooks).c_str(), 2);
    structure.CalcStartNums();
    EXPECT_EQ(structure.totalVersesCount(), 102u);
    EXPECT_EQ(placeOf(structure, 101), (Place{1, 1, 11}));
}

} // namespace
