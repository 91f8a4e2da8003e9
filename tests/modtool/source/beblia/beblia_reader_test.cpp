#include "beblia_reader.h"

#include "errors.h"
#include "format_page.h"
#include "read_source.h"
#include "source_text.h"
#include "temp_folder.h"
#include "unknown_books.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;

namespace {

SourceBible read(const std::string& content)
{
    return readBeblia("f.xml", "<bible translation=\"Name\">" + content + "</bible>");
}

SourceBible chapter(const std::string& verses)
{
    return read("<testament name=\"Old\"><book number=\"1\"><chapter number=\"1\">" + verses +
                "</chapter></book></testament>");
}

std::string errorIn(const std::string& content)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(content)); });
}

const std::string verse = "<chapter number=\"1\"><verse number=\"1\">a</verse></chapter></book>";

} // namespace

TEST(BebliaReader, VersesOfBooksByNumber)
{
    EXPECT_EQ(linesOf(read("<testament name=\"New\"><book number=\"40\">" + verse + "<book number=\"66\">" +
                           verse + "</testament>")),
              "Matt 1:1 a\nRev 1:1 a\n");
    EXPECT_EQ(linesOf(read("<book number=\"66\">" + verse + "<book number=\"1\">" + verse)),
              "Rev 1:1 a\nGen 1:1 a\n"); // files without testaments, in any order
}

TEST(BebliaReader, FilesAsTheyAreFound)
{
    const test_support::TempFolder folder;
    const std::string file = folder.write(
        "a", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!-- from a collection -->\r\n"
             "<bible link=\"https://e.org/b\" translation=\"Превод 1900\" status=\"Public Domain\">\r\n"
             "\t<testament name=\"Old\">\r\n\t\t<book number=\"1\">\r\n\t\t\t<chapter number=\"1\">\r\n"
             "\t\t\t\t<verse number=\"1\">В  начало\r\n\t\t\t\tБог &amp; &#1089;&#1098;</verse>\r\n"
             "\t\t\t</chapter>\r\n\t\t</book>\r\n\t</testament>\r\n</bible>\r\n");
    const SourceBible bible = readSourceFile(file, {});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог & съ\n");
    EXPECT_EQ(bible.info.fullTitle, "Превод 1900");
    EXPECT_EQ(bible.info.shortTitle, "Превод 1900");
    EXPECT_EQ(bible.info.copyright,
              (std::vector<std::string>{"Rights: Public Domain", "Source: https://e.org/b"}));
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(BebliaReader, TitleIsTheFilesNameWhereNoneIsGiven)
{
    const test_support::TempFolder folder;
    const SourceBible bible =
        readSourceFile(folder.write("Мой.xml", "<bible><book number=\"1\">" + verse + "</bible>"), {});
    EXPECT_EQ(bible.info.fullTitle, "Мой");
    EXPECT_TRUE(bible.info.copyright.empty());
}

TEST(BebliaReader, RangesPartsAndVerseZero)
{
    const SourceBible bible =
        chapter("<verse number=\"0\">T</verse><verse number=\"1-2\">a</verse><verse number=\"3a\">b</verse>"
                "<verse number=\"3b\">c</verse><verse number=\"4\"/>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 T a\nGen 1:3 b c\nGen 1:4\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 range of verses, with the text in the first, first at Gen 1:1\n"
              "joined        2 parts of verses, first at Gen 1:3\n"
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST(BebliaReader, VersesGivenTwiceAreJoinedOrTakenOnce)
{
    const SourceBible bible =
        chapter("<verse number=\"1\">a</verse><verse number=\"1\">b</verse><verse number=\"2\">c</verse>"
                "<verse number=\"2\">c</verse>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(BebliaReader, NotesTitlesAndTextOutsideAreLeftOutAndCounted)
{
    const SourceBible bible =
        chapter("<title>Head</title>loose<verse number=\"1\">one<note>n</note>two<br/>three <i>four</i>"
                "</verse>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three four\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 note, first at Gen 1:1\n"
                                     "left out      1 title, first at line 1\n"
                                     "left out      1 text outside the verses, first at line 1\n");
}

TEST(BebliaReader, MarkersOfUsfmGoAndAreCounted)
{
    const SourceBible bible = chapter("<verse number=\"1\">the \\nd LORD\\nd* said</verse>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 the LORD said\n");
    EXPECT_EQ(bible.findings.text(), "kept          2 texts of unknown markers, first at Gen 1:1\n");
}

TEST(BebliaReader, InvalidNumbersAreTolerated)
{
    const SourceBible bible =
        read("<book number=\"1\"><chapter number=\"70000\"><verse>a</verse><verse number=\"1\">b</verse>"
             "<verse number=\"?\">c</verse><verse number=\" 2.\">d</verse></chapter>"
             "<chapter><verse number=\"1\">e</verse></chapter></book>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b c\nGen 1:2 d\nGen 2:1 e\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n"
              "joined        2 verses without a number, with the verses before them, first at Gen 1:0\n"
              "interpreted   2 chapters without a number as the next ones, first at line 1\n");
}

TEST(BebliaReader, ChapterBehindTheLastNumberStaysInRange)
{
    EXPECT_EQ(linesOf(read("<book number=\"1\"><chapter number=\"65534\"/><chapter/><chapter>"
                           "<verse number=\"1\">a</verse></chapter></book>")),
              "Gen 65534:1 a\n");
}

TEST(BebliaReader, ChapterZeroOrNoneIsOfTheFirst)
{
    EXPECT_EQ(linesOf(read("<book number=\"1\"><chapter number=\"0\"><verse number=\"1\">a</verse></chapter>"
                           "<chapter number=\"1\"><verse number=\"1\">b</verse></chapter></book>"
                           "<book number=\"31\"><verse number=\"1\">c</verse></book>")),
              "Gen 1:1 a b\nObad 1:1 c\n");
}

TEST(BebliaReader, BooksBeyondTheProtestantOnesAreTakenByTheirNameOrHaveNoPlace)
{
    const SourceBible bible =
        read("<book number=\"67\" name=\"Tobit\">" + verse + "<book number=\"68\">" + verse);
    EXPECT_EQ(linesOf(bible), "Tob 1:1 a\nBook68 1:1 a\n");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Tobit");
    EXPECT_EQ(bible.findings.text(),
              "interpreted   1 book without a number or code by its name, first at line 1\n");
}

TEST(BebliaReader, RefusesANumberAndANameOfDifferentBooks)
{
    EXPECT_EQ(errorIn("<book number=\"2\" name=\"Битие\">" + verse),
              "f.xml:1: the book is Exod by its number, but Gen by its name: correct one of them");
    for (const auto& [book, line] : std::vector<std::pair<std::string, std::string>>{
             {"number=\"9\" name=\"1 Царства\"", "1Sam 1:1 a\n"},
             {"number=\"9\" name=\"1 Kings\"", "1Sam 1:1 a\n"},
             {"number=\"15\" name=\"1 Esdras\"", "Ezra 1:1 a\n"},
             {"number=\"2\" name=\"The Second Book of Moses\"", "Exod 1:1 a\n"},
             {"number=\"2\" name=\"Изход\"", "Exod 1:1 a\n"}}) {
        const SourceBible bible = read("<book " + book + ">" + verse);
        EXPECT_EQ(linesOf(bible), line);
        EXPECT_EQ(bible.findings.text(), "");
    }
}

TEST(BebliaReader, BookWithoutANumberIsTakenByItsName)
{
    for (const char* number : {"", "0", "x", "70000"})
        EXPECT_EQ(linesOf(read("<book number=\"" + std::string(number) + "\" name=\"Битие\">" + verse)),
                  "Gen 1:1 a\n")
            << number;
    EXPECT_EQ(errorIn("<book number=\"x\">\n" + verse),
              "f.xml:1: \"x\" is not a book number: write one in number, such as 1 for Genesis");
    EXPECT_EQ(linesOf(read("<book>Words</book><book number=\"1\">" + verse)), "Gen 1:1 a\n");
}

TEST(BebliaReader, RefusesAnotherRootVersesOfNoBookAndNone)
{
    EXPECT_EQ(messageOf<CBuildError>([] { readBeblia("f.xml", "<a/>"); }),
              "f.xml:1: the root element is \"a\", not bible");
    EXPECT_EQ(errorIn("<verse number=\"1\">a</verse>"), "f.xml:1: a verse before any <book>");
    EXPECT_EQ(errorIn(""), "f.xml: contains no verses");
}

TEST(BebliaReader, ExampleOfTheFormatPage)
{
    const SourceBible bible =
        readBeblia("f.xml", test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/beblia.md"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог сътвори небето и земята.\nGen 1:2\n"
                              "Tob 1:1 Книга на думите на Товит\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 range of verses, with the text in the first, first at Gen 1:2\n"
              "interpreted   1 book without a number or code by its name, first at line 6\n"
              "left out      1 note, first at Gen 1:1\n");
}
