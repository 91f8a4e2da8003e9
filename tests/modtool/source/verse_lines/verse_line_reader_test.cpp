// Sources with one verse per line: accepted lines, and the messages for others.

#include "build_fixture.h"

namespace {

using build_test::Building;
using build_test::Result;
using VerseLines = Building;

class BadVerseLines : public Building
{
protected:
    /// The message about the text, without the names of the program and the file.
    std::string said(std::string_view verseLines) const
    {
        const std::string message = refusal(verseLines);
        const std::string front = "kedrin-module: " + sourceName();
        EXPECT_TRUE(message.starts_with(front)) << message;
        return message.substr(std::min(front.size(), message.size()));
    }
};

TEST_F(VerseLines, WithByteOrderMarkAndCarriageReturnsAreRead)
{
    ASSERT_EQ(build("\xEF\xBB\xBFGen\t1\t1\tБог\r\n\r\nGen\t1\t2\tрече\r\n").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "Бог");
    EXPECT_EQ(verse(0, 0, 1), "рече");
    EXPECT_EQ(made("BibleStructure.csv"), "1 2\n");
}

TEST_F(VerseLines, BooksMayBeNamedInAnyWayThatShowTakes)
{
    ASSERT_EQ(build("Genesis\t1\t1\tБог\nБит\t1\t2\tрече\nGen\t1\t3\tда\n1 Царе\t1\t1\tслово\n",
                    {"--from", "verse-lines"})
                  .code,
              0);
    EXPECT_EQ(made("BibleStructure.csv"), "1 3\n1 1\n");
    EXPECT_EQ(verse(0, 0, 1), "рече");
}

TEST_F(VerseLines, NeedNoEndOfTheLastLine)
{
    ASSERT_EQ(build("Gen\t1\t1\tБог").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "Бог");
}

TEST_F(VerseLines, EmptyLinesAreSkipped)
{
    ASSERT_EQ(build("\n\nGen\t1\t1\tБог\n\n").code, 0);
    EXPECT_EQ(made("BibleStructure.csv"), "1 1\n");
}

TEST_F(VerseLines, MoreTabsBelongToTheText)
{
    ASSERT_EQ(build("Gen\t1\t1\tБог\tрече\n").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "Бог рече");
}

TEST_F(VerseLines, BooksStandInTheOrderOfFirstAppearance)
{
    ASSERT_EQ(build("Jude\t1\t1\tв\nGen\t1\t1\tа\nJude\t1\t2\tг\n").code, 0);
    EXPECT_EQ(made("BibleStructure.csv"), "1 2\n1 1\n");
    EXPECT_TRUE(made("BibleTitles.txt").starts_with("2 61 0\n"));
    EXPECT_EQ(verse(0, 0, 1), "г");
    EXPECT_EQ(verse(1, 0, 0), "а");
}

TEST_F(VerseLines, ChaptersAndVersesAreSorted)
{
    ASSERT_EQ(build("Gen\t2\t1\tд\nGen\t1\t2\tб\nGen\t1\t1\tа\n").code, 0);
    EXPECT_EQ(made("BibleStructure.csv"), "2 2 1\n");
    EXPECT_EQ(verse(0, 0, 0), "а");
    EXPECT_EQ(verse(0, 0, 1), "б");
    EXPECT_EQ(verse(0, 1, 0), "д");
}

TEST_F(VerseLines, GiveTitlesFromTheFilesName)
{
    ASSERT_EQ(build("Gen\t1\t1\tБог\n").code, 0);
    EXPECT_EQ(made("_Info_.txt"), "Made\nMade\nMade\n");
}

TEST_F(BadVerseLines, MissingFileCannotBeOpened)
{
    const std::string name = m_folder.file("absent.vpl");
    EXPECT_EQ(build_test::run({"build", name, made()}),
              (Result{1, "", "kedrin-module: " + name + ": cannot be opened\n"}));
}

TEST_F(BadVerseLines, WithoutAVerse)
{
    EXPECT_EQ(said(""), ": contains no verses\n");
    EXPECT_EQ(said("\n\r\n"), ": contains no verses\n");
}

TEST_F(BadVerseLines, NotUtf8)
{
    for (const char* bytes : {"\xC1\xEE\xE3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xD0"})
        EXPECT_EQ(said("Gen\t1\t1\tа\nGen\t1\t2\t" + std::string(bytes) + "\n"), ":2: not valid UTF-8\n");
}

TEST_F(BadVerseLines, FewerThanThreeTabs)
{
    const std::string message = ": a line must be BOOK, CHAPTER, VERSE and text, separated by tabs\n";
    EXPECT_EQ(said("Gen 1 1 text\n"), ":1" + message);
    EXPECT_EQ(said("Gen\t1\t1\tа\n\nGen\t1\t2\n"), ":3" + message);
}

TEST_F(BadVerseLines, InvalidBookId)
{
    EXPECT_EQ(said("\t1\t1\tа\n"), ":1: \"\" is not an OSIS book id\n");
    EXPECT_EQ(said("Gen.1\t1\t1\tа\n"), ":1: \"Gen.1\" is not an OSIS book id (did you mean Gen?)\n");
    EXPECT_EQ(said("Битник\t1\t1\tа\n"), ":1: \"Битник\" is not an OSIS book id (did you mean Gen?)\n");
    EXPECT_EQ(said("Abcdefghijklmnopq\t1\t1\tа\n"), ":1: \"Abcdefghijklmnopq\" is not an OSIS book id\n");
}

TEST_F(BadVerseLines, InvalidChapterNumber)
{
    const std::string message = " is not a chapter number from 1 to 65534\n";
    for (const char* number : {"0", "65535", "4294967297", "-1", "+1", "1a", "", " 1", "١"})
        EXPECT_EQ(said("Gen\t" + std::string(number) + "\t1\tа\n"),
                  ":1: \"" + std::string(number) + '"' + message);
}

TEST_F(BadVerseLines, InvalidVerseNumber)
{
    const std::string message = " is not a verse number from 1 to 65534\n";
    for (const char* number : {"0", "65535", "99999999999999999999", "-1", "1.", ""})
        EXPECT_EQ(said("Gen\t1\t" + std::string(number) + "\tа\n"),
                  ":1: \"" + std::string(number) + '"' + message);
}

TEST_F(BadVerseLines, LongFieldIsQuotedTruncated)
{
    EXPECT_EQ(said("Gen\t" + std::string(41, '9') + "\t1\tа\n"),
              ":1: \"" + std::string(40, '9') + "...\" is not a chapter number from 1 to 65534\n");
    EXPECT_EQ(said("Gen\t" + std::string(40, '9') + "\t1\tа\n"),
              ":1: \"" + std::string(40, '9') + "\" is not a chapter number from 1 to 65534\n");
}

TEST_F(BadVerseLines, VerseGivenTwiceNamesBothLines)
{
    EXPECT_EQ(said("Gen\t1\t1\tа\nGen\t1\t2\tб\n\nGen\t1\t1\tа\n"),
              ":4: Gen 1:1 is given twice, first in line 1\n");
}

TEST_F(BadVerseLines, FirstOfSeveralRepetitionsIsNamed)
{
    EXPECT_EQ(said("Gen\t1\t1\tа\nJude\t1\t1\tв\nJude\t1\t1\tв\nGen\t1\t1\tа\n"),
              ":3: Jude 1:1 is given twice, first in line 2\n");
    EXPECT_EQ(said("Gen\t1\t1\tа\nGen\t1\t1\tа\nGen\t1\t1\tа\n"),
              ":2: Gen 1:1 is given twice, first in line 1\n");
}

TEST_F(BadVerseLines, LongerThanTheLimit)
{
    m_folder.write("Made.vpl", "");
    std::filesystem::resize_file(sourceName(), 64u * 1024 * 1024 + 1);
    EXPECT_EQ(build_test::run({"build", sourceName(), made()}).err,
              "kedrin-module: " + sourceName() + ": is larger than 64 MiB\n");
}

} // namespace
