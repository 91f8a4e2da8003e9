// The texts of a loaded translation: verse by verse and chapter by chapter.

#include "bible_fixture.h"

namespace {

using namespace Kedrin::Tolvo;
using test_support::cp1251;
using test_support::makeModule;
using test_support::ModuleFiles;
using test_support::plainBook;
using test_support::smallModule;

using BibleVerses = BibleFixture;
using BibleVersesDeathTest = BibleVerses;

TEST_F(BibleVerses, ReferenceOfUnknownTypeIsRefused)
{
    const CBible& bible = load(smallModule());
    const std::string message = "CBible::operator [](): ref type is not known";
    EXPECT_EQ(outOfRange([&] { bible[CRef(0, 0, 0)]; }), message);
    EXPECT_EQ(outOfRange([&] { bible[CRef()]; }), message);
    EXPECT_EQ(bible[CRef(0, 0, 0, false)], cp1251("Бог рече"));
}

TEST_F(BibleVerses, LocalAndGlobalReferencesReachTheirVerse)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(bible[CRef(1, 0, 3, false)], cp1251("Матей 1:4"));
    EXPECT_EQ(bible[CRef(50, 0, 3, true)], cp1251("Матей 1:4"));
    EXPECT_EQ(bible[CRef(51, 1, 2, true)], cp1251("Марк 2:3"));
}

TEST_F(BibleVerses, VerseOutsideTheStructureThrowsTheStructuresMessages)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(outOfRange([&] { bible[CRef(2, 0, 0, false)]; }),
              "CBibleSructure::ValidateBookID(): bookID out of range");
    EXPECT_EQ(outOfRange([&] { bible[CRef(0, 2, 0, false)]; }),
              "CBibleSructure::ValidateChapterID(): chapter out of range");
    EXPECT_EQ(outOfRange([&] { bible[CRef(0, 0, 2, false)]; }),
              "CBibleSructure::ValidateRef(): verse out of range");
    EXPECT_EQ(outOfRange([&] { bible[CRef(0, 0, 0, true)]; }),
              "CTitles::localID() called for non existing book");
}

TEST_F(BibleVerses, MoreVersesInTheStructureThanTextsThrowsTheVectorsMessage)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactPoint.bin"].resize(12);
    const CBible& bible = load(files);
    EXPECT_EQ(outOfRange([&] { bible[CRef(1, 0, 0, false)]; }),
              "CFileVector::operator [](): recordIndex out of range");
}

TEST_F(BibleVerses, ChapterGivesWhatItsVersesGiveOneByOne)
{
    const std::string longVerse(65535, 'x'); // the longest possible record
    test_support::Book book = plainBook(0, "Псалми", {176, 1, 40});
    book.chapters[0][7] = std::string("a\0b", 3);
    book.chapters[0][8].clear();
    book.chapters[2][1] = book.chapters[2][39] = longVerse;
    const CBible& bible = load(makeModule("Превод", {book}));
    for (unsigned int chapter = 0; chapter < 3; ++chapter) {
        const std::vector<std::string> verses = bible.chapterVerses(0, chapter);
        ASSERT_EQ(verses.size(), bible.versesCount(0, chapter));
        for (unsigned int verse = 0; verse < verses.size(); ++verse)
            EXPECT_EQ(verses[verse], bible[CRef(0, chapter, verse, false)]);
    }
}

TEST_F(BibleVerses, ChapterThatDoesNotExistThrowsTheStructuresMessages)
{
    const CBible& bible = load(lateBooks());
    EXPECT_EQ(outOfRange([&] { bible.chapterVerses(2, 0); }),
              "CBibleSructure::ValidateBookID(): bookID out of range");
    EXPECT_EQ(outOfRange([&] { bible.chapterVerses(0, 2); }),
              "CBibleSructure::ValidateChapterID(): chapter out of range");
}

TEST_F(BibleVerses, ChapterWithoutVersesIsEmpty)
{
    const CBible& bible = load(makeModule("Превод", {plainBook(0, "Битие", {1, 0, 2})}));
    EXPECT_TRUE(bible.chapterVerses(0, 1).empty());
    EXPECT_EQ(bible.chapterVerses(0, 2).size(), 2u);
}

TEST_F(BibleVerses, ChapterBeyondTheTextsThrowsAsItsFirstMissingVerse)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactPoint.bin"].resize(4);
    const CBible& bible = load(files);
    EXPECT_EQ(outOfRange([&] { bible.chapterVerses(0, 0); }),
              "CFileVector::operator [](): recordIndex out of range");
}

// Reading a verse may throw only std::out_of_range. A damaged text file ends the program.
TEST_F(BibleVersesDeathTest, DamagedTextEndsTheProgram)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactText.bin"].resize(12);
    const CBible& bible = load(files);
    EXPECT_DEATH(bible[CRef(0, 0, 1, false)],
                 "CBible::operator \\[\\]\\(\\) let out .*: CBibleText::operator \\[\\]\\(\\): I/O error");
    EXPECT_EQ(bible[CRef(0, 0, 0, false)], cp1251("Бог рече")); // an undamaged verse of the same file is read
}

TEST_F(BibleVersesDeathTest, HalfAPointRecordEndsTheProgram)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactPoint.bin"].resize(6);
    const CBible& bible = load(files);
    EXPECT_DEATH(bible[CRef(0, 0, 1, false)], "CFileVector::operator \\[\\]\\(\\): IO error");
}

} // namespace
