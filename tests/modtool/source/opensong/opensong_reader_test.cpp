#include "opensong_reader.h"

#include "errors.h"
#include "format_page.h"
#include "read_source.h"
#include "source_format.h"
#include "source_text.h"
#include "temp_folder.h"
#include "unknown_books.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;

namespace {

SourceBible read(const std::string& content) { return readOpenSong("f", "<bible>" + content + "</bible>"); }

SourceBible chapter(const std::string& verses)
{
    return read("<b n=\"Genesis\"><c n=\"1\">" + verses + "</c></b>");
}

std::string errorIn(const std::string& content)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(content)); });
}

const std::string verse = "<c n=\"1\"><v n=\"1\">a</v></c></b>";

std::string bookNamed(const std::string& name) { return "<b n=\"" + name + "\">" + verse; }

} // namespace

TEST(OpenSongReader, VersesOfBooksByName)
{
    EXPECT_EQ(linesOf(read(bookNamed("Revelation") + bookNamed("1 Samuel") + bookNamed("II Царе") +
                           bookNamed("ПСАЛМИ") + bookNamed("Мат.") + bookNamed("Song of Solomon") +
                           bookNamed("1John"))),
              "Rev 1:1 a\n1Sam 1:1 a\n2Sam 1:1 a\nPs 1:1 a\nMatt 1:1 a\nSong 1:1 a\n1John 1:1 a\n");
}

TEST(OpenSongReader, BooksByNumberCodeAndOsisId)
{
    EXPECT_EQ(linesOf(read(bookNamed("1") + bookNamed("66") + bookNamed("MAN") + bookNamed("EsthGr"))),
              "Gen 1:1 a\nRev 1:1 a\nPrMan 1:1 a\nEsth 1:1 a\n");
}

TEST(OpenSongReader, FilesAsTheyAreFound)
{
    const test_support::TempFolder folder;
    const std::string file = folder.write(
        "Превод", "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\r\n<!-- <book> -->\r\n<bible>\r\n"
                  "\t<b n='Битие'>\r\n\t\t<c n='1'>\r\n\t\t\t<v n='1'>В  начало\r\nБог &#1080;</v>\r\n"
                  "\t\t</c>\r\n\t</b>\r\n</bible>");
    const SourceBible bible = readSourceFile(file, {});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог и\n");
    EXPECT_EQ(bible.info.fullTitle, "Превод");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Битие");
    EXPECT_EQ(bible.bookTitles[0].shortTitle, "Битие");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(OpenSongReader, IsToldFromTheOtherFormatWithItsRoot)
{
    EXPECT_EQ(detectFormat("<bible><!-- <book/> --><?book?><![CDATA[<book>]]><b n='Gen'/>", "f"),
              SourceFormat::opensong);
    EXPECT_EQ(detectFormat("<bible><title>T</title>\n<b\nn='Gen'><book/>", "f"), SourceFormat::opensong);
    EXPECT_EQ(detectFormat("<bible><testament><b/>", "f"), SourceFormat::beblia);
    EXPECT_EQ(detectFormat("<bible><book number='1'><b/>", "f"), SourceFormat::beblia);
    for (const char* broken : {"<bible", "<bible>", "<bible><!-- <b>", "<bible><![CDATA[<b>", "<bible></b>"})
        EXPECT_EQ(detectFormat(broken, "f"), SourceFormat::beblia) << broken;
    const std::string tags(8u << 20, '<'); // has to take linear time
    EXPECT_EQ(detectFormat("<bible>" + tags, "f"), SourceFormat::beblia);
}

TEST(OpenSongReader, RangesPartsAndVerseZero)
{
    const SourceBible bible = chapter("<v n=\"0\">T</v><v n=\"1\" t=\"2\">a</v><v n=\"3-4\">b</v>"
                                      "<v n=\"5a\">c</v><v n=\"5b\">d</v><v n=\"6\" t=\"x\"/>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 T a\nGen 1:3 b\nGen 1:5 c d\nGen 1:6\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        2 ranges of verses, with the text in the first, first at Gen 1:1\n"
              "joined        2 parts of verses, first at Gen 1:5\n"
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST(OpenSongReader, VersesGivenTwiceAreJoinedOrTakenOnce)
{
    const SourceBible bible = chapter("<v n=\"1\">a</v><v n=\"1\">b</v><v n=\"2\">c</v><v n=\"2\">c</v>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(OpenSongReader, MarksInAVerseAreText)
{
    EXPECT_EQ(linesOf(chapter("<v n=\"1\">one <b>two</b> <b n=\"Exodus\">three</b> <c n=\"9\">four</c>"
                              " <i>five</i></v><b>out</b><v n=\"2\">six</v>")),
              "Gen 1:1 one two three four five\nGen 1:2 six\n");
}

TEST(OpenSongReader, NotesTitlesAndTextOutsideAreLeftOutAndCounted)
{
    const SourceBible bible =
        chapter("<title>Head</title>loose<v n=\"1\">one<note>n</note>two<br/>three</v>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 note, first at Gen 1:1\n"
                                     "left out      1 title, first at line 1\n"
                                     "left out      1 text outside the verses, first at line 1\n");
}

TEST(OpenSongReader, MarkersOfUsfmGoAndAreCounted)
{
    const SourceBible bible = chapter("<v n=\"1\">the \\nd LORD\\nd* said</v>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 the LORD said\n");
    EXPECT_EQ(bible.findings.text(), "kept          2 texts of unknown markers, first at Gen 1:1\n");
}

TEST(OpenSongReader, InvalidNumbersAreTolerated)
{
    const SourceBible bible =
        read("<b n=\"Obadiah\"><v n=\"1\">a</v><v>b</v></b><b n=\"Gen\"><c n=\"x\"><v n=\"1\">c</v></c>"
             "<c n=\"0\"><v n=\"1\">d</v></c></b>");
    EXPECT_EQ(linesOf(bible), "Obad 1:1 a b\nGen 1:1 d c\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n"
              "joined        1 verse without a number, with the verse before it, first at Obad 1:1\n"
              "interpreted   1 chapter without a number as the next one, first at line 1\n");
}

TEST(OpenSongReader, UnknownBookIsRefusedWhereItHasVerses)
{
    for (const std::string name : {"Genfoo", "Jo", "", "0", "67", "1-2", "1a"})
        EXPECT_EQ(errorIn("\n<b n=\"" + name + "\">\n" + verse),
                  "f:2: \"" + name +
                      "\" is not a known book name: write an English or Bulgarian one in n, such as Genesis");
    EXPECT_EQ(linesOf(read("<b n=\"Preface\">Words</b>" + bookNamed("Gen"))), "Gen 1:1 a\n");
}

TEST(OpenSongReader, RefusesAnotherRootVersesOfNoBookAndNone)
{
    EXPECT_EQ(messageOf<CBuildError>([] { readOpenSong("f", "<a/>"); }),
              "f:1: the root element is \"a\", not bible");
    EXPECT_EQ(errorIn("<v n=\"1\">a</v>"), "f:1: a verse before any <b>");
    EXPECT_EQ(errorIn(""), "f: contains no verses");
}

TEST(OpenSongReader, ExampleOfTheFormatPage)
{
    const std::string example = test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/opensong.md");
    EXPECT_EQ(detectFormat(example, "f"), SourceFormat::opensong);
    const SourceBible bible = readOpenSong("f", example);
    EXPECT_EQ(linesOf(bible),
              "Gen 1:1 In the beginning was the word\nGen 1:2 and light\nMatt 1:1 Родословие\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 range of verses, with the text in the first, first at Gen 1:2\n");
}
