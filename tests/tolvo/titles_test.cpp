#include "tolvo_bible/titles.h"

#include "allocation_watch.h"
#include "bad_file.h"

#include <stdexcept>
#include <type_traits>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using test_support::messageOf;
using test_support::TempFolder;

constexpr const char* badBook = "CTitles::ValidateBookID(): bookID out of range";
constexpr const char* absentBook = "CTitles::localID() called for non existing book";
constexpr const char* opening = "CTitles::CTitles(): error opening file ";

// "Битие" and "Изход" in Windows-1251
const std::string genesis = "\xC1\xE8\xF2\xE8\xE5";
const std::string exodus = "\xC8\xE7\xF5\xEE\xE4";
const std::string twoBooks =
    "2 0 1\n" + genesis + "\n" + exodus + "\n" + genesis + "\n" + exodus + "\n\xC1\xE8\xF2\n\xC8\xE7\xF5\n";

CTitles made(const std::string& text)
{
    const TempFolder folder;
    return CTitles(folder.write("f", text).c_str());
}

template <typename Query>
std::string rangeError(Query query)
{
    return messageOf<std::out_of_range>(query);
}

TEST(Titles, GivesThreeTitlesOfEachBook)
{
    const CTitles titles = made(twoBooks);
    EXPECT_EQ(titles.booksCount(), 2u);
    EXPECT_EQ(titles.fullTitle(0), genesis);
    EXPECT_EQ(titles.shortTitle(1), exodus);
    EXPECT_EQ(titles.abbreviatedTitle(1), "\xC8\xE7\xF5");
}

TEST(Titles, EachSectionIsItsOwn)
{
    const CTitles titles = made("2 7 9\nfull0\nfull1\nshort0\nshort1\nabbr0\nabbr1\n");
    EXPECT_EQ(titles.fullTitle(0) + titles.fullTitle(1), "full0full1");
    EXPECT_EQ(titles.shortTitle(0) + titles.shortTitle(1), "short0short1");
    EXPECT_EQ(titles.abbreviatedTitle(0) + titles.abbreviatedTitle(1), "abbr0abbr1");
}

TEST(Titles, MapsBetweenLocalAndGlobalNumbers)
{
    const CTitles titles = made(twoBooks);
    EXPECT_EQ(titles.globalID(0), 0u);
    EXPECT_EQ(titles.localID(1), 1u);
    EXPECT_TRUE(titles.hasBook(1));
    EXPECT_FALSE(titles.hasBook(5));
    EXPECT_EQ(rangeError([&] { titles.localID(5); }), absentBook);
}

TEST(Titles, LocalNumbersAreValidated)
{
    const CTitles titles = made(twoBooks);
    EXPECT_EQ(rangeError([&] { titles.fullTitle(2); }), badBook);
    EXPECT_EQ(rangeError([&] { titles.shortTitle(2); }), badBook);
    EXPECT_EQ(rangeError([&] { titles.abbreviatedTitle(4294967295u); }), badBook);
    EXPECT_EQ(rangeError([&] { titles.globalID(2); }), badBook);
    EXPECT_EQ(rangeError([&] { titles.ValidateBookID(2); }), badBook);
    EXPECT_NO_THROW(titles.ValidateBookID(1));
}

TEST(Titles, APartOfTheBooksMayBeThere)
{
    std::string text = "27";
    for (int book = 50; book < 77; ++book)
        text += " " + std::to_string(book);
    const CTitles titles = made(text + "\n");
    EXPECT_EQ(titles.booksCount(), 27u);
    EXPECT_EQ(titles.localID(50), 0u);
    EXPECT_EQ(titles.globalID(26), 76u);
    EXPECT_FALSE(titles.hasBook(0));
    EXPECT_EQ(rangeError([&] { titles.localID(49); }), absentBook);
}

// A global number must map to exactly one local book: the first in the file.
TEST(Titles, OfBooksWithTheSameGlobalNumberTheFirstIsFound)
{
    const CTitles titles = made("3 8 4 8\n");
    EXPECT_EQ(titles.localID(8), 0u);
    EXPECT_EQ(titles.globalID(0), 8u);
    EXPECT_EQ(titles.globalID(2), 8u);
}

TEST(Titles, NegativeGlobalNumbersWrap)
{
    const CTitles titles = made("1 -1\n");
    EXPECT_EQ(titles.globalID(0), 4294967295u);
    EXPECT_EQ(titles.localID(4294967295u), 0u);
}

TEST(TitlesFile, OfCrLfLinesReadsLikeOneOfLfLines)
{
    const CTitles titles = made("2 0 1\r\nA\r\nB\r\nC\r\nD\r\nE\r\nF\r\n");
    EXPECT_EQ(titles.fullTitle(0), "A");
    EXPECT_EQ(titles.abbreviatedTitle(1), "F");
}

TEST(TitlesFile, OnlyOneLineEndingIsRemoved) { EXPECT_EQ(made("1 0\nA\r\r\n").fullTitle(0), "A\r"); }

TEST(TitlesFile, BlanksInATitleAreKept)
{
    const CTitles titles = made("1 0\n  First  Book of \t Moses \n\n1 0\n");
    EXPECT_EQ(titles.fullTitle(0), "  First  Book of \t Moses ");
    EXPECT_EQ(titles.shortTitle(0), "");
    EXPECT_EQ(titles.abbreviatedTitle(0), "1 0");
}

TEST(TitlesFile, NumbersMaySpanLines)
{
    const CTitles titles = made("\n2\n0\r\n\t1\nA\nB\n");
    EXPECT_EQ(titles.fullTitle(0), "A");
    EXPECT_EQ(titles.fullTitle(1), "B");
}

TEST(TitlesFile, TheRestOfTheLastNumbersLineIsSkipped)
{
    EXPECT_EQ(made("1 0 and some words\nA\n").fullTitle(0), "A");
    EXPECT_EQ(made("1 0x\nA\n").fullTitle(0), "A");
    EXPECT_EQ(made("1 0" + std::string(1000, ' ') + "\nA\n").fullTitle(0), "A");
}

TEST(TitlesFile, TitleLinesOfAnyLengthAreReadWhole)
{
    for (const std::size_t length : {254u, 255u, 256u, 257u, 100000u}) {
        const std::string title(length, '\xC1');
        const CTitles titles = made("1 0\n" + title + "\r\n" + title + "\nA");
        EXPECT_EQ(titles.fullTitle(0), title) << length;
        EXPECT_EQ(titles.shortTitle(0), title) << length;
        EXPECT_EQ(titles.abbreviatedTitle(0), "A") << length;
    }
}

TEST(TitlesFile, ATitleEndsAtAZeroByte)
{
    const CTitles titles = made("1 0\nAB\0CD\nE\n"s);
    EXPECT_EQ(titles.fullTitle(0), "AB");
    EXPECT_EQ(titles.shortTitle(0), "E");
}

TEST(TitlesFile, MissingLinesAreEmptyTitles)
{
    const CTitles titles = made("2 0 1\nA\nB\nC");
    EXPECT_EQ(titles.shortTitle(0), "C");
    EXPECT_EQ(titles.shortTitle(1), "");
    EXPECT_EQ(titles.abbreviatedTitle(1), "");
    EXPECT_EQ(made("2 0 1").fullTitle(1), "");
}

TEST(TitlesFile, OfNoBooksIsSound)
{
    const CTitles titles = made("0");
    EXPECT_EQ(titles.booksCount(), 0u);
    EXPECT_EQ(rangeError([&] { titles.fullTitle(0); }), badBook);
}

TEST(TitlesFile, WithoutABookCountHasNoBooks)
{
    for (const char* text : {"", " \n", "x", "-1", "4294967296", "\xC1\xE8\xF2", "x 0\nA\nB\nC\n"}) {
        const CTitles titles = made(text);
        EXPECT_EQ(titles.booksCount(), 0u) << text;
        EXPECT_FALSE(titles.hasBook(0)) << text;
        EXPECT_EQ(rangeError([&] { titles.globalID(0); }), badBook) << text;
    }
}

TEST(TitlesFile, MissingGlobalNumberIsOneThatNoReferenceHas)
{
    for (const char* text : {"3 7", "3 7 x", "3 7 2147483648 8\n", "3 7\nA\nB\n", "3 7 -", "3 7 x 8"}) {
        const CTitles titles = made(text);
        ASSERT_EQ(titles.booksCount(), 3u) << text;
        EXPECT_EQ(titles.globalID(0), 7u) << text;
        EXPECT_EQ(titles.localID(7), 0u) << text;
        for (const unsigned int missing : {1u, 2u})
            EXPECT_EQ(titles.globalID(missing), 4294967295u) << text;
        for (const unsigned int globalBookID : {0u, 8u, 4294967295u})
            EXPECT_EQ(rangeError([&] { titles.localID(globalBookID); }), absentBook) << text;
    }
}

TEST(TitlesFile, TitlesBeginOnTheLineAfterTheLastNumberThatIsOne)
{
    for (const char* text : {"2 7\nA\nB\nC\n", "2 7 x 8\nA\nB\nC\n"}) {
        const CTitles titles = made(text);
        EXPECT_EQ(titles.fullTitle(0), "A") << text;
        EXPECT_EQ(titles.fullTitle(1), "B") << text;
        EXPECT_EQ(titles.shortTitle(0), "C") << text;
        EXPECT_EQ(titles.shortTitle(1), "") << text;
    }
}

TEST(TitlesFile, OfABookCountAloneHasSoManyBooksWithoutTitles)
{
    const CTitles titles = made("77");
    EXPECT_EQ(titles.booksCount(), 77u);
    EXPECT_EQ(titles.fullTitle(76), "");
    EXPECT_FALSE(titles.hasBook(76));
}

TEST(TitlesFile, ThatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder))
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CTitles titles(bad.path.c_str()); }),
                  opening + bad.path)
            << bad.defect;
}

TEST(TitlesFile, SpoiledAnywhereItIsRead)
{
    test_support::walkSpoiled(twoBooks, {}, test_support::walkTitles);
}

TEST(TitlesFile, HugeCountsTakeNoMemory)
{
    for (const char* text : {"4294967295 0 1\n", "400000000 0 1\n", "257 0 1\n"}) {
        const TempFolder folder;
        const std::string path = folder.write("f", text);
        const test_support::AllocationWatch watch;
        EXPECT_EQ(CTitles(path.c_str()).booksCount(), 0u) << text;
        EXPECT_LT(watch.total(), 4096u) << text;
    }
    const TempFolder folder;
    const std::string path = folder.write("f", "256");
    const test_support::AllocationWatch watch;
    EXPECT_EQ(CTitles(path.c_str()).booksCount(), 256u);
    EXPECT_LT(watch.total(), 65536u);
}

// Its owners delete it as a CTitles; nothing is ever deleted through the interface.
TEST(Titles, HasItsOwnVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CTitles>);
    EXPECT_FALSE(std::is_destructible_v<ITitles>);
}

TEST(Titles, PrintAReferenceWithTheirAbbreviations)
{
    const CTitles titles = made(twoBooks);
    EXPECT_EQ(CRef(1, 4, 8, false).toString(&titles), "\xC8\xE7\xF5 5:9");
    EXPECT_EQ(rangeError([&] { CRef(2, 0, 0).toString(&titles); }), badBook);
}

} // namespace
