#include "usfm_reader.h"

#include "errors.h"
#include "source_text.h"
#include "unknown_books.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;

namespace {

SourceBible read(const std::string& text)
{
    CUsfmReader reader;
    reader.read("f.usfm", text);
    return reader.finish("f.usfm");
}

std::string errorIn(const std::string& text)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(text)); });
}

/// The lines of a text that begins at Gen 1:1.
std::string linesIn(const std::string& text) { return linesOf(read("\\id GEN\n\\c 1\n\\p\n\\v 1 " + text)); }

std::string findingsIn(const std::string& text)
{
    return read("\\id GEN\n\\c 1\n\\p\n\\v 1 " + text).findings.text();
}

} // namespace

TEST(UsfmReader, VersesAndChapters)
{
    EXPECT_EQ(linesOf(read("\\id GEN World\r\n\\c 1\r\n\\p\r\n\\v 1 In the\r\nbeginning\r\n\\v 2 And\r\n\\c "
                           "2\r\n\\v 1 Thus\r\n")),
              "Gen 1:1 In the beginning\nGen 1:2 And\nGen 2:1 Thus\n");
}

TEST(UsfmReader, ParagraphsAndLinesOfPoetryAreSeparate)
{
    EXPECT_EQ(linesIn("one\n\\p two\n\\q1 three\n\\q2\nfour\n\\b\n\\m five\n\\tr \\th1 six\\tc2 seven"),
              "Gen 1:1 one two three four five six seven\n");
}

TEST(UsfmReader, CharacterMarkersKeepTheirText)
{
    EXPECT_EQ(
        linesIn("\\nd Lord\\nd* \\add is\\add* \\wj go \\+nd God\\+nd*\\wj* \\qs Selah\\qs* \\tl x\\tl*y"),
        "Gen 1:1 Lord is go God Selah xy\n");
}

TEST(UsfmReader, AttributesOfWordsAreLeftOut)
{
    EXPECT_EQ(linesIn("\\w gnat|lemma=\"x\" strong=\"H1\"\\w* \\wj \\+w go|G1\\+w* on\\wj* \\w old\\w* a|b"),
              "Gen 1:1 gnat go on old a|b\n");
}

TEST(UsfmReader, MilestonesAreLeftOutWithTheirAttributes)
{
    const std::string text = "\\qt-s |who=\"P\" sid=\"1\"\\*one a|b\\qt-e\\* \\ts\\*two \\zms\\*three";
    EXPECT_EQ(linesIn(text), "Gen 1:1 one a|b two three\n");
    EXPECT_EQ(findingsIn(text), "");
}

TEST(UsfmReader, NotesAreLeftOutAndCounted)
{
    const std::string text =
        "one\\f + \\fr 1:1 \\ft note \\+nd x\\+nd*\\f*, two\\x - \\xo 1:1 \\xt Ex 1\\x*three";
    EXPECT_EQ(linesIn(text), "Gen 1:1 one, two three\n");
    EXPECT_EQ(findingsIn(text), "left out      2 notes, first at Gen 1:1\n");
}

TEST(UsfmReader, NoteWithoutAnEndEndsWithItsParagraph)
{
    const std::string text = "one\\f + \\ft note\n\\p two\n\\v 2 three";
    EXPECT_EQ(linesIn(text), "Gen 1:1 one two\nGen 1:2 three\n");
    EXPECT_EQ(findingsIn(text),
              "left out      1 note, first at Gen 1:1\n"
              "closed        1 note without an end, at the end of its paragraph, first at Gen 1:1\n");
}

TEST(UsfmReader, HeadingsAndIntroductionsAreLeftOutAndCounted)
{
    const SourceBible bible =
        read("\\id GEN\n\\imt1 Intro\n\\ip Of \\bk it\\bk*\n\\c 1\n\\s1 Head\n\\r (x)\n\\p\n\\v 1 one\n"
             "\\s1 Middle \\f + \\ft n\\f*\n\\p two\n\\esb\n\\p Side\n\\esbe\n\\p three");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three\n");
    EXPECT_EQ(bible.findings.text(), "left out      3 titles, first at line 5\n"
                                     "left out      3 texts outside the verses, first at line 2\n");
}

TEST(UsfmReader, PsalmTitleStandsBeforeTheVerseThatFollows)
{
    const SourceBible bible = read("\\id PSA\n\\c 3\n\\d A \\nd psalm\\nd*.\\f + \\ft n\\f*\n\\q1\n\\v 1 "
                                   "Lord\n\\c 4\n\\d\n\\v 1 Title\n\\v 2 x");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 A psalm. Lord\nPs 4:1 Title\nPs 4:2 x\n");
    EXPECT_EQ(bible.findings[ReaderRule::canonicalTitle].count, 1u);
}

TEST(UsfmReader, RangesPartsAndSecondNumbers)
{
    const SourceBible bible =
        read("\\id GEN\n\\c 1 \\ca 2\\ca*\n\\v 1-3 a\n\\v 4a b\n\\v 4b c\n\\v 5 \\va 6\\va* \\vp 5x\\vp*d\n"
             "\\v 7,8 e\n\\v 9\u20139a f");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:4 b c\nGen 1:5 d\nGen 1:7 e\nGen 1:9 f\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        2 ranges of verses, with the text in the first, first at Gen 1:1\n"
              "joined        2 parts of verses, first at Gen 1:4\n"
              "left out      3 numbers in another numbering, first at line 2\n");
}

TEST(UsfmReader, BlanksAndLineBreaksWrittenAsSigns)
{
    EXPECT_EQ(linesIn("one~two//three / four"), "Gen 1:1 one two three / four\n");
}

TEST(UsfmReader, UnknownMarkersKeepTheirTextAndAreCounted)
{
    EXPECT_EQ(linesIn("one \\zz two\\zz* three"), "Gen 1:1 one two three\n");
    EXPECT_EQ(findingsIn("one \\zz two\\zz* three"),
              "kept          1 text of an unknown marker, first at Gen 1:1\n");
}

TEST(UsfmReader, FiguresAreLeftOut)
{
    EXPECT_EQ(linesIn("one \\fig Cap|src=\"a.jpg\"\\fig*two"), "Gen 1:1 one two\n");
}

TEST(UsfmReader, BooksComeInAnyOrderAndSeveralInAFile)
{
    EXPECT_EQ(linesOf(read("\\id rev\n\\c 1\n\\v 1 a\n\\id 1JN\n\\c 1\n\\v 2 c\n\\v 1 b\n")),
              "Rev 1:1 a\n1John 1:1 b\n1John 1:2 c\n");
}

TEST(UsfmReader, BookOfOneChapterNeedsNoChapterMarker)
{
    EXPECT_EQ(linesOf(read("\\id OBA\n\\v 1 a")), "Obad 1:1 a\n");
}

TEST(UsfmReader, TitlesOfBooks)
{
    const SourceBible bible =
        read("\\id GEN\n\\h Running\n\\toc1 Long\n\\toc2 Short\n\\toc3 Ab\n\\mt1 Main\n\\c 1\n\\v 1 a\n"
             "\\id EXO\n\\h Exodus\n\\mt2 Second\n\\mt1 Book\n\\c 1\n\\v 1 b");
    ASSERT_EQ(bible.bookTitles.size(), 2u);
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Long");
    EXPECT_EQ(bible.bookTitles[0].shortTitle, "Short");
    EXPECT_EQ(bible.bookTitles[0].abbreviatedTitle, "Ab");
    EXPECT_EQ(bible.bookTitles[1].fullTitle, "Second\n Book\n ");
    EXPECT_EQ(bible.bookTitles[1].shortTitle, "Exodus");
}

TEST(UsfmReader, RefusesVersesOutsideABook)
{
    EXPECT_EQ(errorIn("\\c 1\n\\v 1 a"),
              "f.usfm:1: a chapter before any \\id: write an \\id with the book's code, such as \\id GEN");
    EXPECT_EQ(errorIn("\\v 1 a"),
              "f.usfm:1: a verse before any \\id: write an \\id with the book's code, such as \\id GEN");
    for (const std::string code : {"GENSIS", "", "\u0411\u0411\u0411", "G", "GEN\u0411"}) {
        const std::string error = errorIn("\\id " + code + "\n\\c 1\n\\v 1 a\n");
        EXPECT_TRUE(error.starts_with("f.usfm:1: \"" + code +
                                      "\" is not a book code: write one after \\id, such as GEN"))
            << error;
    }
    EXPECT_EQ(errorIn("\\id GEN\n\\c 1\n\\p text\n"), "f.usfm: contains no verses");
}

TEST(UsfmReader, CodeOfABookMayBeWrittenInAnyForm)
{
    for (const std::string line : {"GEN, free words", "GEN- free words", "GEN\u2014words", "gen", "GEN.",
                                   "GEN:", "\uFEFFGEN", " GEN", "Gen \u2013 x"}) {
        const SourceBible bible = read("\\id " + line + "\n\\c 1\n\\v 1 a");
        EXPECT_EQ(linesOf(bible), "Gen 1:1 a\n") << line;
        EXPECT_EQ(bible.findings.text(), "") << line;
    }
}

TEST(UsfmReader, BookWithoutACodeIsTakenByItsName)
{
    for (const std::string line : {"Genesis", "GENESIS, a book", "Битие", "Бит."}) {
        const SourceBible bible = read("\\id " + line + "\n\\c 1\n\\v 1 a");
        EXPECT_EQ(linesOf(bible), "Gen 1:1 a\n") << line;
        EXPECT_EQ(bible.findings.text(),
                  "interpreted   1 book without a number or code by its name, first at line 1\n")
            << line;
    }
    EXPECT_EQ(linesOf(read("\\id 1 Samuel\n\\c 1\n\\v 1 a")), "1Sam 1:1 a\n");
    EXPECT_EQ(linesOf(read("\\id Joh\n\\c 1\n\\v 1 a")), "John 1:1 a\n");
}

TEST(UsfmReader, ByteOrderMarkOfAConcatenatedFileIsIgnored)
{
    EXPECT_EQ(linesOf(read("\\id GEN\n\\c 1\n\\v 1 a\n\uFEFF\\id EXO\n\\c 1\n\\v 1 b")),
              "Gen 1:1 a\nExod 1:1 b\n");
}

TEST(UsfmReader, NumberMayTouchItsMarkerOrItsText)
{
    const SourceBible bible =
        read("\\id GEN\n\\c1\n\\v1 a\\v2-3 b\\v4\u0430 c\n\\v 5И d\\v6. e\\v 7) f\n\\v8-9и g\\v10за");
    EXPECT_EQ(linesOf(bible),
              "Gen 1:1 a\nGen 1:2 b\nGen 1:4 c\nGen 1:5 И d\nGen 1:6 e\nGen 1:7 f\nGen 1:8 g\nGen 1:10 за\n");
    EXPECT_EQ(bible.findings[ReaderRule::verseWithoutNumber].count, 0u);
}

TEST(UsfmReader, VerseWithoutANumberIsJoinedToTheOneBefore)
{
    const SourceBible bible = read("\\id GEN\n\\c 1\n\\v И a\n\\v 1 b\n\\v\nc\n\\v 4000000000 d\n\\v 2 e\n");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 И a b c 4000000000 d\nGen 1:2 e\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n"
              "joined        3 verses without a number, with the verses before them, first at Gen 1:0\n");
}

TEST(UsfmReader, ChapterWithoutANumberIsTheNextOne)
{
    const SourceBible bible = read("\\id GEN\n\\c\n\\v 1 a\n\\c x\n\\v 1 b\n\\c 4000000000\n\\v 1 c\n");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 2:1 b\nGen 3:1 c\n");
    EXPECT_EQ(bible.findings[ReaderRule::chapterWithoutNumber].count, 3u);
}

TEST(UsfmReader, ChapterZeroStandsBeforeTheFirstVerse)
{
    const SourceBible bible = read("\\id SIR\n\\c 0\n\\v 1 a\n\\v 2 b\n\\c 1\n\\v 1 c\n\\c 1\n\\v 2 d");
    EXPECT_EQ(linesOf(bible), "Sir 1:1 a b c\nSir 1:2 d\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        2 verses 0, put before the next verse, first at Sir 1:0\n");
}

TEST(UsfmReader, BarIsAnAttributeOnlyWhereTheMarkerHasOne)
{
    EXPECT_EQ(linesIn("\\wj one|two\\wj* \\nd a|b=c\\nd* \\add x|y=\"z\" w\\add*"),
              "Gen 1:1 one|two a|b=c x|y=\"z\" w\n");
    EXPECT_EQ(linesIn("\\wj one|x-id=\"1\" link-href='b'\\wj* \\zz a|b|c=\"d\"\\zz* \\w go|G1\\w*"),
              "Gen 1:1 one a|b go\n");
}

TEST(UsfmReader, ExampleOfTheFormatPage)
{
    const SourceBible bible = read("\\id PSA\n\\c 3\n\\d Псалом на Давида.\n\\q1\n"
                                   "\\v 1 \\w Господи|strong=\"H3068\"\\w*,\\f + \\ft или: Боже\\f* колко\n"
                                   "\\q2 се умножиха!\n");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 Псалом на Давида. Господи, колко се умножиха!\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 psalm title, put before its text, first at Ps 3:1\n"
                                     "left out      1 note, first at Ps 3:1\n");
}
