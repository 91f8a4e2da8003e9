// A loaded translation: titles, counts, words, the mapping of references.

#include "bible_fixture.h"

#include <type_traits>

namespace {

using namespace Kedrin::Tolvo;
using test_support::cp1251;
using test_support::makeModule;
using test_support::ModuleFiles;
using test_support::plainBook;
using test_support::smallModule;

using Bible = BibleFixture;

TEST_F(Bible, TitlesGoByGlobalBookNumber)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(bible.fullTitle(50), cp1251("Матей"));
    EXPECT_EQ(bible.shortTitle(51), cp1251("Марк"));
    EXPECT_EQ(bible.abbreviatedTitle(50), cp1251("Мат"));
    EXPECT_EQ(bible.titles()->fullTitle(0), cp1251("Марк")); // titles() takes local numbers
}

TEST_F(Bible, FullShortAndAbbreviatedTitlesAreThreeTexts)
{
    const CBible& bible = load(smallModule());
    EXPECT_EQ(bible.fullTitle(0), cp1251("Първа книга Моисеева - Битие"));
    EXPECT_EQ(bible.shortTitle(0), cp1251("Битие"));
    EXPECT_EQ(bible.abbreviatedTitle(0), cp1251("Бит"));
}

TEST_F(Bible, TitlesOfMissingBookAreEmpty)
{
    const CBible& bible = load(lateBooks());
    for (const unsigned int globalBookID : {0u, 1u, 49u, 52u, 4294967295u}) {
        EXPECT_EQ(bible.fullTitle(globalBookID), "");
        EXPECT_EQ(bible.shortTitle(globalBookID), "");
        EXPECT_EQ(bible.abbreviatedTitle(globalBookID), "");
        EXPECT_FALSE(bible.hasBook(globalBookID));
    }
    EXPECT_TRUE(bible.hasBook(50));
}

TEST_F(Bible, GlobalReferencePrintsItselfByTheTranslation)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(CRef(50, 0, 3, true).toString(&bible), cp1251("Мат 1:4"));
}

TEST_F(Bible, CountsGoByLocalNumbers)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(bible.booksCount(), 2u);
    EXPECT_EQ(bible.chaptersCount(0), 2u);
    EXPECT_EQ(bible.versesCount(0, 1), 3u);
    EXPECT_EQ(outOfRange([&] { bible.chaptersCount(2); }),
              "CBibleSructure::ValidateBookID(): bookID out of range");
    EXPECT_EQ(outOfRange([&] { bible.versesCount(0, 2); }),
              "CBibleSructure::ValidateChapterID(): chapter out of range");
}

TEST_F(Bible, WordsComeFromTheWordList)
{
    const CBible& bible = load(smallModule());
    EXPECT_EQ(bible.wordsCount(), 3u);
    EXPECT_EQ(bible.getWord(1), cp1251("земя"));
    EXPECT_EQ(bible.indexOfWord(cp1251("РЕЧЕ")), 2);
    EXPECT_EQ(bible.indexOfWord(cp1251("реч")), -1);
    EXPECT_EQ(outOfRange([&] { bible.getWord(3); }), "CWordList::operator [](): wordIndex out of range");
}

TEST_F(Bible, ToLocalMapsTheBookAndMarksLocal)
{
    const CBible& bible = load(lateBooks());
    const CRef local = bible.toLocal(CRef(50, 0, 3, true));
    EXPECT_TRUE(local.isLocal());
    EXPECT_EQ(local.bookID(), 1u);
    EXPECT_EQ(local.chapter(), 0u);
    EXPECT_EQ(local.verse(), 3u);
}

TEST_F(Bible, ToGlobalMapsTheBookAndMarksGlobal)
{
    const CBible& bible = load(lateBooks());
    const CRef global = bible.toGlobal(CRef(0, 1, 2, false));
    EXPECT_TRUE(global.isGlobal());
    EXPECT_EQ(global.bookID(), 51u);
    EXPECT_EQ(global.chapter(), 1u);
    EXPECT_EQ(global.verse(), 2u);
}

TEST_F(Bible, ConversionsDoNotLookAtTheType)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(bible.toLocal(CRef(51, 0, 0, false)).bookID(), 0u);
    EXPECT_EQ(bible.toLocal(CRef(51, 0, 0)).bookID(), 0u);
    EXPECT_EQ(bible.toGlobal(CRef(0, 0, 0, true)).bookID(), 51u);
}

TEST_F(Bible, ConversionsDoNotValidateChapterAndVerse)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(bible.toLocal(CRef(51, 900, 800, true)).chapter(), 900u);
    EXPECT_EQ(bible.toGlobal(CRef(0, 900, 800, false)).verse(), 800u);
}

TEST_F(Bible, ToLocalOfMissingBookThrows)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(outOfRange([&] { bible.toLocal(CRef(0, 0, 0, true)); }),
              "CTitles::localID() called for non existing book");
}

TEST_F(Bible, ToGlobalOfMissingBookThrows)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(outOfRange([&] { bible.toGlobal(CRef(2, 0, 0, false)); }),
              "CTitles::ValidateBookID(): bookID out of range");
}

// The book is mapped first, so the records of the differences have the book in the target numbering: the
// record for book 52 (from 1) shifts references that become global book 51, the record for book 1 those that
// become local book 0.
TEST_F(Bible, DifferencesApplyAfterTheBookIsMapped)
{
    ModuleFiles files = lateBooks();
    files.bytes["_Diff_.txt"] = "52 2 1 0 5\n1 2 1 0 -7\n";
    const CBible& bible = load(files);
    EXPECT_EQ(bible.toGlobal(CRef(0, 1, 0, false)).verse(), 5u);
    EXPECT_EQ(bible.toLocal(CRef(51, 1, 0, true)).verse(), 7u);
    EXPECT_EQ(bible.toLocal(CRef(50, 1, 0, true)).verse(), 0u);
}

TEST_F(Bible, RoundTripGivesBackEveryVerseMappedBothWays)
{
    // A record shifts the second chapter of the only book by one verse; book numbers are equal on both sides, so
    // it counts in both directions.
    const ModuleFiles files = makeModule("Превод", {plainBook(0, "Битие", {5, 6, 7})}, "1 2 1 0 1\r\n");
    const CBible& bible = load(files);
    for (unsigned int chapter = 0; chapter < bible.chaptersCount(0); ++chapter) {
        for (unsigned int verse = 0; verse < bible.versesCount(0, chapter); ++verse) {
            const CRef global = bible.toGlobal(CRef(0, chapter, verse, false));
            const CRef again = bible.toGlobal(bible.toLocal(global));
            EXPECT_EQ(global.verse(), chapter == 1 ? verse + 1 : verse);
            EXPECT_FALSE(again < global);
            EXPECT_FALSE(global < again);
            EXPECT_TRUE(again.isGlobal());
        }
    }
}

TEST(BibleType, IsNeitherCopiedNorDeletedAsAnother)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CBible>);
    EXPECT_FALSE(std::is_copy_assignable_v<CBible>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CBible>);
    EXPECT_FALSE(std::has_virtual_destructor_v<ITitles>);
    EXPECT_FALSE(std::is_copy_constructible_v<CBibleModules>);
    EXPECT_FALSE(std::is_copy_assignable_v<CBibleModules>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CBibleModules>);
}

TEST_F(Bible, DemoOfAShortModuleTellsWhatWentWrong)
{
    EXPECT_EQ(load(smallModule()).demoString(),
              "Demo exception: CBibleSructure::ValidateNum(): verse number out of range");
}

TEST_F(Bible, DemoNamesTheLastVerseOfAWholeBible)
{
    ModuleFiles files = smallModule(); // only the structure is used
    files.bytes["BibleStructure.csv"] = "2 31000 80\r\n1 15\r\n";
    EXPECT_EQ(load(files).demoString(), "num(31094) -> ref(1, 0, 14)");
}

TEST_F(Bible, DemoNeedsTheVerseItNames)
{
    ModuleFiles files = smallModule();
    files.bytes["BibleStructure.csv"] = "2 31000 80\r\n1 14\r\n"; // 31094 verses: the last is number 31093
    EXPECT_EQ(load(files).demoString(),
              "Demo exception: CBibleSructure::ValidateNum(): verse number out of range");
}

} // namespace
