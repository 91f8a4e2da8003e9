#include "usfx_reader.h"

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

SourceBible read(const std::string& content) { return readUsfx("f.xml", "<usfx>" + content + "</usfx>"); }

SourceBible chapter(const std::string& content)
{
    return read("<book id=\"GEN\"><c id=\"1\"/>" + content + "</book>");
}

std::string errorIn(const std::string& content)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(content)); });
}

} // namespace

TEST(UsfxReader, VersesEndWithTheirMilestonesTheNextOneOrTheBook)
{
    const SourceBible bible = read(
        "<book id=\"GEN\"><c id=\"1\"/><p><v id=\"1\" bcv=\"GEN.1.1\"/>a<ve/> out <v id=\"2\"/>b</p>"
        "<p>c<v id=\"3\"/>d</p><c id=\"2\"/><p><v id=\"1\"/>e</p></book>stray<book id=\"EXO\"><c id=\"1\"/>"
        "<p><v id=\"1\"/>f</p></book>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:2 b c\nGen 1:3 d\nGen 2:1 e\nExod 1:1 f\n");
    EXPECT_EQ(bible.findings.text(), "left out      2 texts outside the verses, first at line 1\n");
}

TEST(UsfxReader, NumberMayStandInTheReference)
{
    EXPECT_EQ(linesOf(chapter("<v bcv=\"GEN.1.4\"/>a<v bcv=\"5\"/>b")), "Gen 1:4 a\nGen 1:5 b\n");
}

TEST(UsfxReader, RangesPartsAndVerseZero)
{
    const SourceBible bible = chapter("<p><v id=\"0\"/>T<v id=\"1-2\"/>a<v id=\"3a\"/>b<v id=\"3b\"/>c</p>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 T a\nGen 1:3 b c\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 range of verses, with the text in the first, first at Gen 1:1\n"
              "joined        2 parts of verses, first at Gen 1:3\n"
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST(UsfxReader, VersesGivenTwiceAreJoinedOrTakenOnce)
{
    const SourceBible bible = chapter("<p><v id=\"1\"/>a<v id=\"1\"/>b<v id=\"2\"/>c<v id=\"2\"/>c</p>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(UsfxReader, ElementsMeanWhatTheirMarkersDo)
{
    const SourceBible bible = chapter(
        "<s level=\"1\">Head</s><p sfm=\"ip\">Intro</p><q level=\"1\"><v id=\"1\"/>the <nd>L<sc>ORD</sc></nd>"
        "<f caller=\"+\"><fr>1:1</fr><ft>n</ft></f>said<x>x</x></q><q level=\"2\">two</q><b/><p "
        "sfm=\"m\">three"
        "<optionalLineBreak/>four</p><table><tr><th>five</th><tc>six</tc></tr></table><va id=\"2\">2</va>"
        "<fig><description>D</description><caption>C</caption></fig><cs sfm=\"add\">seven</cs> "
        "<ref tgt=\"GEN.1.1\">v</ref><milestone sfm=\"qt-s\"/><quoteStart level=\"1\">“</quoteStart>"
        "<rem>Remark</rem><periph>Map</periph>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 the LORD said two three four five six seven v“\n");
    EXPECT_EQ(bible.findings.text(), "left out      2 notes, first at Gen 1:1\n"
                                     "left out      1 title, first at line 1\n"
                                     "left out      1 number in another numbering, first at Gen 1:1\n"
                                     "left out      1 figure or index entry, first at Gen 1:1\n"
                                     "left out      3 texts outside the verses, first at line 1\n");
}

TEST(UsfxReader, NoteInsideAWordDoesNotDivideIt)
{
    EXPECT_EQ(linesOf(chapter("<v id=\"1\"/><w s=\"H1\">be<f>n</f>gin</w> of<f>n</f>time")),
              "Gen 1:1 begin of time\n");
}

TEST(UsfxReader, VerseThatBeginsInAHeadingEndsIt)
{
    const SourceBible bible = chapter("<s>Head <bd>bold<v id=\"1\"/>a</bd> b</s><p>c</p>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b c\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 title, first at line 1\n");
}

TEST(UsfxReader, PsalmTitleStandsBeforeTheVerseThatFollows)
{
    const SourceBible bible =
        read("<book id=\"PSA\"><c id=\"3\"/><d>Of <nd>D</nd><f>n</f>avid.</d><q><v id=\"1\"/>a</q></book>");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 Of D avid. a\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 psalm title, put before its text, first at Ps 3:1\n"
                                     "left out      1 note, first at line 1\n");
}

TEST(UsfxReader, UnknownElementsKeepTheirTextAndAreCounted)
{
    const SourceBible bible = chapter("<v id=\"1\"/>a<zzz>b</zzz><cs sfm=\"zz\">c</cs><p sfm=\"zy\">d</p>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 abc d\n");
    EXPECT_EQ(bible.findings.text(), "kept          3 texts of unknown markers, first at Gen 1:1\n");
}

TEST(UsfxReader, TitlesOfBooks)
{
    const SourceBible bible =
        read("<languageCode>bul</languageCode><book id=\"GEN\"><id id=\"GEN\">- T</id><h>Gen h</h><toc "
             "level=\"3\">Gn"
             "</toc><p sfm=\"mt\" level=\"2\">The book</p><mt>of<f>n</f> Genesis</mt><v id=\"1\"/>a</book>"
             "<book id=\"EXO\"><toc level=\"1\">Exodus</toc><p sfm=\"mt\">Other</p><toc level=\"2\">Ex</toc>"
             "<v id=\"1\"/>b</book>");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "The book of Genesis ");
    EXPECT_EQ(bible.bookTitles[0].shortTitle, "Gen h");
    EXPECT_EQ(bible.bookTitles[0].abbreviatedTitle, "Gn");
    EXPECT_EQ(bible.bookTitles[1].fullTitle, "Exodus");
    EXPECT_EQ(bible.bookTitles[1].shortTitle, "Ex");
}

TEST(UsfxReader, InvalidNumbersAndCodesAreTolerated)
{
    const SourceBible bible = read("<book id=\"Genesis\"><v id=\"1\"/>a<v/>b<c/><v id=\"1\"/>c</book>"
                                   "<book id=\"OBA\"><c id=\"0\"/><v id=\"1\"/>d</book>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b c\nObad 1:1 d\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse given more than once, first at Gen 1:1\n"
              "joined        1 verse 0, put before the next verse, first at Obad 1:0\n"
              "joined        1 verse without a number, with the verse before it, first at Gen 1:1\n"
              "interpreted   1 chapter without a number as the next one, first at line 1\n"
              "interpreted   1 book without a number or code by its name, first at line 1\n");
}

TEST(UsfxReader, RefusesVersesOutsideABook)
{
    EXPECT_EQ(messageOf<CBuildError>([] { readUsfx("f.xml", "<a/>"); }),
              "f.xml:1: the root element is \"a\", not usfx");
    EXPECT_EQ(errorIn("<v id=\"1\"/>a"), "f.xml:1: a verse before any <book>");
    EXPECT_EQ(errorIn("\n<book id=\"?\"/><c id=\"1\"/><v id=\"1\"/>a"),
              "f.xml:2: \"?\" is not a book code: write one in id, such as GEN");
    EXPECT_EQ(errorIn("<book id=\"GEN\"/>"), "f.xml: contains no verses");
}

TEST(UsfxReader, ExampleOfTheFormatPage)
{
    const std::string example = test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/usfx.md");
    EXPECT_EQ(detectFormat(example, "f"), SourceFormat::usfx);
    const SourceBible bible = readUsfx("f", example);
    EXPECT_EQ(linesOf(bible), "Ps 3:1 Псалом на Давида. Господи, колко се умножиха!\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 psalm title, put before its text, first at Ps 3:1\n"
                                     "left out      1 note, first at Ps 3:1\n");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Псалми");
}
