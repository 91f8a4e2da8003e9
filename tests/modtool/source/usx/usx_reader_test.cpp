#include "read_source.h"
#include "usx_reader.h"

#include "errors.h"
#include "format_page.h"
#include "source_format.h"
#include "source_text.h"
#include "temp_folder.h"
#include "unknown_books.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

namespace {

SourceBible readUsx(const std::string& content)
{
    CUsxReader reader;
    reader.read("f.usx", content);
    return reader.finish("f.usx");
}

SourceBible read(const std::string& content) { return readUsx("<usx version=\"3.0\">" + content + "</usx>"); }

SourceBible chapter(const std::string& content)
{
    return read("<book code=\"GEN\" style=\"id\"/><chapter number=\"1\" style=\"c\" sid=\"GEN 1\"/>" +
                content);
}

std::string para(const std::string& style, const std::string& content)
{
    return "<para style=\"" + style + "\">" + content + "</para>";
}

std::string chars(const std::string& style, const std::string& content)
{
    return "<char style=\"" + style + "\">" + content + "</char>";
}

std::string verse(const std::string& number) { return "<verse number=\"" + number + "\" style=\"v\"/>"; }

/// Of the first verse, whose text goes on with this.
std::string lineOf(const std::string& content) { return linesOf(chapter(para("p", verse("1") + content))); }

std::string errorIn(const std::string& content)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(content)); });
}

} // namespace

TEST(UsxReader, VersesOfUsx3EndWithTheirMilestones)
{
    const SourceBible bible =
        chapter(para("p", "<verse number=\"1\" style=\"v\" sid=\"GEN 1:1\"/>a<verse eid=\"GEN 1:1\"/> out "
                          "<verse number=\"2\" style=\"v\" sid=\"GEN 1:2\"/>b") +
                para("p", "c<verse eid=\"GEN 1:1\"/>d<verse eid=\"GEN 1:2\"/>") + "<chapter eid=\"GEN 1\"/>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:2 b cd\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 text outside the verses, first at line 1\n");
}

TEST(UsxReader, VersesOfUsx2EndWithTheNextOneOrTheChapter)
{
    EXPECT_EQ(linesOf(chapter(para("p", verse("1") + "a " + verse("2") + "b") +
                              "<chapter number=\"2\" style=\"c\"/>" + para("p", verse("1") + "c"))),
              "Gen 1:1 a\nGen 1:2 b\nGen 2:1 c\n");
    EXPECT_EQ(linesOf(chapter(para("p", verse("1") + "a<chapter eid=\"GEN 1\"/>out"))), "Gen 1:1 a\n");
}

TEST(UsxReader, RangesPartsAndVerseZero)
{
    const SourceBible bible = chapter(para("p", verse("0") + "T" + verse("1-2") + "a" + verse("3a") + "b" +
                                                    verse("3b") + "c" + verse("4,5") + "d"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 T a\nGen 1:3 b c\nGen 1:4 d\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        2 ranges of verses, with the text in the first, first at Gen 1:1\n"
              "joined        2 parts of verses, first at Gen 1:3\n"
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST(UsxReader, VersesGivenTwiceAreJoinedOrTakenOnce)
{
    const SourceBible bible =
        chapter(para("p", verse("1") + "a" + verse("1") + "b" + verse("2") + "c" + verse("2") + "c"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(UsxReader, ParagraphsLinesAndCellsAreSeparate)
{
    EXPECT_EQ(
        linesOf(chapter(para("q1", verse("1") + "a") + para("q2", "b") + "<para style=\"b\"/>" +
                        para("m", "c<optbreak/>d") +
                        "<table><row style=\"tr\"><cell style=\"tc1\">e</cell><cell style=\"tcr2\" "
                        "colspan=\"2\">f</cell></row><row style=\"tr\"><cell style=\"th1\">g</cell></row>"
                        "</table>")),
        "Gen 1:1 a b c d e f g\n");
}

TEST(UsxReader, CharacterStylesKeepTheirText)
{
    EXPECT_EQ(lineOf("the " + chars("nd", "L" + chars("sc", "ORD")) + " " + chars("add", "is") +
                     chars("qs", " Selah") +
                     "<ms style=\"qt-s\" sid=\"1\" who=\"A\"/> <ref loc=\"GEN 1:1\">v</ref>"),
              "Gen 1:1 the LORD is Selah v\n");
}

TEST(UsxReader, NotesAreLeftOutAndCounted)
{
    const SourceBible bible = chapter(
        para("p", verse("1") + "one<note caller=\"+\" style=\"f\"><char style=\"fr\">1:1</char>" +
                      chars("ft", "n") + "</note>two <note style=\"x\" caller=\"-\">x</note>." +
                      chars("w", "be<note style=\"f\">n</note>gin") + " " + chars("rb", "a<note>n</note>b")));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two .begin ab\n");
    EXPECT_EQ(bible.findings.text(), "left out      4 notes, first at Gen 1:1\n");
}

TEST(UsxReader, HeadingsAndIntroductionsAreLeftOutAndCounted)
{
    const SourceBible bible =
        chapter(para("ip", "Intro") + para("is1", "Head") + para("s1", "Section") + para("r", "(Mt 1)") +
                para("p", verse("1") + "a") + para("s2", "Inside") + para("p", "b") + para("rem", "Remark") +
                para("s", "") +
                "<sidebar style=\"esb\"><para style=\"p\">Side</para></sidebar>"
                "<periph alt=\"Map\"><para style=\"p\">Map</para></periph>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\n");
    EXPECT_EQ(bible.findings.text(), "left out      3 titles, first at line 1\n"
                                     "left out      5 texts outside the verses, first at line 1\n");
}

TEST(UsxReader, VerseThatBeginsInAHeadingEndsIt)
{
    const SourceBible bible =
        chapter(para("s1", "Head " + chars("bd", "bold" + verse("1") + "a") + " b") + para("p", "c"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b c\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 title, first at line 1\n");
    EXPECT_EQ(linesOf(chapter(para("ip", verse("1") + "a") + para("p", "b"))), "Gen 1:1 a b\n");
}

TEST(UsxReader, PsalmTitleStandsBeforeTheVerseThatFollows)
{
    const SourceBible bible = read("<book code=\"PSA\" style=\"id\"/><chapter number=\"3\" style=\"c\"/>" +
                                   para("d", "Of " + chars("nd", "D") + "<note style=\"f\">n</note>avid.") +
                                   para("q1", verse("1") + "a") + "<chapter number=\"4\" style=\"c\"/>" +
                                   para("d", verse("1") + "Title.") + para("q1", verse("2") + "b"));
    EXPECT_EQ(linesOf(bible), "Ps 3:1 Of D avid. a\nPs 4:1 Title.\nPs 4:2 b\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 psalm title, put before its text, first at Ps 3:1\n"
                                     "left out      1 note, first at line 1\n");
}

TEST(UsxReader, SecondNumbersAndFiguresAreLeftOut)
{
    const SourceBible bible = chapter(para("p", verse("1") + chars("va", "2") + "a" + chars("vp", "1b") +
                                                    " b<figure style=\"fig\" "
                                                    "file=\"a.jpg\">Caption</figure>") +
                                      para("cl", "Chapter one"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 title, first at Gen 1:1\n"
                                     "left out      2 numbers in another numbering, first at Gen 1:1\n"
                                     "left out      1 figure or index entry, first at Gen 1:1\n");
}

TEST(UsxReader, UnknownStylesKeepTheirTextAndAreCounted)
{
    const SourceBible bible =
        chapter(para("zzz", verse("1") + "a" + chars("zz", "b")) + "<para>c</para><any>d</any>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 ab c d\n");
    EXPECT_EQ(bible.findings.text(), "kept          3 texts of unknown markers, first at line 1\n");
}

TEST(UsxReader, TitlesOfBooks)
{
    const SourceBible bible =
        read("<book code=\"GEN\" style=\"id\">- T</book>" + para("h", "Gen h") + para("toc3", "Gn") +
             para("mt2", "The book") + para("mt1", "of<note style=\"f\">n</note><optbreak/>Genesis") +
             "<chapter number=\"1\"/>" + para("p", verse("1") + "a") + "<book code=\"EXO\" style=\"id\"/>" +
             para("toc1", "Exodus") + para("mt", "Other") + para("toc2", "Ex") + para("p", verse("1") + "b"));
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "The book of Genesis ");
    EXPECT_EQ(bible.bookTitles[0].shortTitle, "Gen h");
    EXPECT_EQ(bible.bookTitles[0].abbreviatedTitle, "Gn");
    EXPECT_EQ(bible.bookTitles[1].fullTitle, "Exodus");
    EXPECT_EQ(bible.bookTitles[1].shortTitle, "Ex");
}

TEST(UsxReader, InvalidNumbersAreTolerated)
{
    const SourceBible bible =
        read("<book code=\"OBA\" style=\"id\"/>" + para("p", verse("1") + "a" + verse("?") + "b") +
             "<book code=\"GEN\" style=\"id\"/><chapter number=\"x\"/>" + para("p", verse("1") + "c") +
             "<chapter number=\"0\"/>" + para("p", verse("1") + "d"));
    EXPECT_EQ(linesOf(bible), "Obad 1:1 a b\nGen 1:1 d c\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n"
              "joined        1 verse without a number, with the verse before it, first at Obad 1:1\n"
              "interpreted   1 chapter without a number as the next one, first at line 1\n");
}

TEST(UsxReader, BookWithoutACodeIsTakenByItsName)
{
    const std::string one = para("p", verse("1") + "a");
    const SourceBible bible = read("<book code=\"\" style=\"id\">Genesis</book>" + one +
                                   "<book code=\"Exodus\" style=\"id\"/>" + one);
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nExod 1:1 a\n");
    EXPECT_EQ(bible.findings.text(),
              "interpreted   2 books without a number or code by their names, first at line 1\n");
    EXPECT_EQ(
        errorIn(
            "\n<book code=\"?\" style=\"id\">\nNothing</book><chapter number=\"1\"/><verse number=\"1\"/>a"),
        "f.usx:2: \"?\" is not a book code: write one in code, such as GEN");
}

TEST(UsxReader, RefusesVersesOutsideABook)
{
    EXPECT_EQ(messageOf<CBuildError>([] { readUsx("<a/>"); }), "f.usx:1: the root element is \"a\", not usx");
    EXPECT_EQ(errorIn(para("p", verse("1") + "a")), "f.usx:1: a verse before any <book>");
    EXPECT_EQ(errorIn("<book code=\"GEN\"/>"), "f.usx: contains no verses");
    CUsxReader reader; // a file does not go on with the book of the one before it
    reader.read("a.usx", "<usx><book code=\"GEN\"/><verse number=\"1\"/>a</usx>");
    EXPECT_EQ(messageOf<CBuildError>([&] { reader.read("b.usx", "<usx><verse number=\"1\"/>a</usx>"); }),
              "b.usx:1: a verse before any <book>");
}

TEST(UsxReader, FolderIsReadAsOneOfUsfm)
{
    const auto file = [](const std::string& code) {
        return "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<usx version=\"3.0\"><book code=\"" + code +
               "\" style=\"id\"/>" + para("ip", "Intro") + para("p", verse("1") + "a") + "</usx>";
    };
    for (const std::string extension : {".usx", ".USX", ".xml", ""}) {
        const TempFolder folder;
        folder.write("02" + extension, file("GEN"));
        folder.write("01" + extension, file("REV"));
        folder.write("metadata.html", "<DBLMetadata/>");
        folder.write(".hidden.usx", "broken");
        const SourceBible bible = readSourceFile(folder.path().string(), {});
        EXPECT_EQ(linesOf(bible), "Rev 1:1 a\nGen 1:1 a\n") << extension;
        EXPECT_EQ(bible.findings.text(),
                  "left out      2 texts outside the verses, first at line 2 of 01" + extension + "\n");
    }
    const TempFolder folder;
    folder.write("REV.usx", file("REV"));
    folder.write("GEN.usx", file("GEN"));
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), {})), "Gen 1:1 a\nRev 1:1 a\n");
    folder.write("EXO.usfm", "\\id EXO\n\\c 1\n\\v 1 b\n");
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), {})), "Exod 1:1 b\n");
    ReadOptions usx;
    usx.format = SourceFormat::usx;
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), usx)), "Gen 1:1 a\nRev 1:1 a\n");
}

TEST(UsxReader, ExampleOfTheFormatPage)
{
    const std::string example = test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/usx.md");
    EXPECT_EQ(detectFormat(example, "f"), SourceFormat::usx);
    const SourceBible bible = readUsx(example);
    EXPECT_EQ(linesOf(bible), "Ps 3:1 Псалом на Давида. Господи, колко се умножиха!\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 psalm title, put before its text, first at Ps 3:1\n"
                                     "left out      1 note, first at Ps 3:1\n");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Псалми");
}
