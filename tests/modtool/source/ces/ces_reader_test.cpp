#include "ces_reader.h"

#include "errors.h"
#include "format_page.h"
#include "source_format.h"
#include "source_text.h"
#include "unknown_books.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;

namespace {

SourceBible read(const std::string& content)
{
    return readCes("f", "<cesDoc><text><body>" + content + "</body></text></cesDoc>");
}

SourceBible chapter(const std::string& verses)
{
    return read("<div id='b.GEN' type='book'><div id='b.GEN.1' type='chapter'>" + verses + "</div></div>");
}

std::string verse(const std::string& number, const std::string& text)
{
    return "<seg id='b.GEN.1." + number + "' type='verse'>" + text + "</seg>";
}

std::string book(const std::string& code)
{
    return "<div id='b." + code + "' type='book'><div id='b." + code + ".2' type='chapter'><seg id='b." +
           code + ".2.3' type='verse'>a</seg></div></div>";
}

std::string errorIn(const std::string& content)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(content)); });
}

} // namespace

TEST(CesReader, VersesOfBooksByCode)
{
    EXPECT_EQ(linesOf(read(book("GEN") + book("SON") + book("EZE") + book("JOE") + book("NAH") + book("MAR") +
                           book("joh") + book("ACT") + book("PHI") + book("PHM") + book("JAM") + book("1JO") +
                           book("2JO") + book("3JO") + book("JUD") + book("MRK"))),
              "Gen 2:3 a\nSong 2:3 a\nEzek 2:3 a\nJoel 2:3 a\nNah 2:3 a\nMark 2:3 a\nJohn 2:3 a\nActs 2:3 a\n"
              "Phil 2:3 a\nPhlm 2:3 a\nJas 2:3 a\n1John 2:3 a\n2John 2:3 a\n3John 2:3 a\nJude 2:3 a\n");
}

TEST(CesReader, VersesOnLinesOfTheirOwn)
{
    const SourceBible bible =
        chapter("\r\n" + verse("1", "\r\n\tone\r\n  two\r\n") + "\r\n" + "<seg id='b.GEN.1.2'>three</seg>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\nGen 1:2 three\n");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(CesReader, RangesPartsAndVerseZero)
{
    const SourceBible bible =
        chapter(verse("0", "T") + verse("1-2", "a") + verse("3a", "b") + verse("3b", "c"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 T a\nGen 1:3 b c\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 range of verses, with the text in the first, first at Gen 1:1\n"
              "joined        2 parts of verses, first at Gen 1:3\n"
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST(CesReader, VersesGivenTwiceAreJoinedOrTakenOnce)
{
    const SourceBible bible = chapter(verse("1", "a") + verse("1", "b") + verse("2", "c") + verse("2", "c"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(CesReader, OtherElementsInAVerseAreText)
{
    EXPECT_EQ(
        linesOf(chapter(verse("1", "one <seg id='b.GEN.1.9' type='verse'>two</seg> <w>th</w>ree<l>four</l>"
                                   "<p>five</p>six<seg type='part'>seven</seg>"))),
        "Gen 1:1 one two three four five sixseven\n");
}

TEST(CesReader, NotesHeadingsAndTextOutsideAreLeftOutAndCounted)
{
    const SourceBible bible = chapter("<head>Head</head>loose" + verse("1", "one<note>n</note>two") + "out");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 note, first at Gen 1:1\n"
                                     "left out      1 title, first at line 1\n"
                                     "left out      2 texts outside the verses, first at line 1\n");
}

TEST(CesReader, TitleOfTheHeader)
{
    const SourceBible bible = readCes(
        "f", "<cesDoc><cesHeader><h.title> Title </h.title><h.title>no</h.title><a>b</a></cesHeader>" +
                 book("GEN") + "</cesDoc>");
    EXPECT_EQ(bible.info.fullTitle, "Title");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(CesReader, InvalidNumbersAreTolerated)
{
    const SourceBible bible = read("<div id='b.OBA' type='book'>" + verse("1", "a") +
                                   "<seg type='verse'>b</seg></div>"
                                   "<div id='b.GEN' type='book'><div id='x' type='chapter'>" +
                                   verse("1", "c") + "</div></div>");
    EXPECT_EQ(linesOf(bible), "Obad 1:1 a b\nGen 1:1 c\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse without a number, with the verse before it, first at Obad 1:1\n"
              "interpreted   1 chapter without a number as the next one, first at line 1\n");
}

TEST(CesReader, RefusesAnotherRootVersesOfNoBookAndNone)
{
    EXPECT_EQ(messageOf<CBuildError>([] { readCes("f", "<a/>"); }),
              "f:1: the root element is \"a\", not cesDoc");
    EXPECT_EQ(errorIn(verse("1", "a")), "f:1: a verse before any <div type=\"book\">");
    EXPECT_EQ(errorIn("\n<div id='b.QWER' type='book'>\n" + verse("1", "a") + "</div>"),
              "f:2: \"QWER\" is not a book code: write one in id, such as GEN");
    EXPECT_EQ(errorIn(""), "f: contains no verses");
}

TEST(CesReader, ExampleOfTheFormatPage)
{
    const std::string example = test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/ces.md");
    EXPECT_EQ(detectFormat(example, "f"), SourceFormat::ces);
    const SourceBible bible = readCes("f", example);
    EXPECT_EQ(linesOf(bible), "Mark 1:1 Начало на благовестието\nMark 1:2 Както е писано\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 note, first at Mark 1:1\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
}
