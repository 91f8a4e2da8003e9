// Plain text and tables of verses: what is understood of each shape, and what is refused with which words.

#include "book_finder.h"
#include "build_fixture.h"
#include "errors.h"
#include "plain_reader.h"
#include "source_format.h"
#include "source_text.h"
#include "temp_folder.h"
#include "text_input.h"

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

namespace {

SourceBible read(const std::string& text, const std::string& book = "", const std::string& file = "f.txt")
{
    CPlainReader reader;
    reader.read(file, text, {book, ""});
    return reader.finish(file);
}

std::string versesOf(const std::string& text, const std::string& book = "")
{
    return linesOf(read(text, book));
}

std::string refusalOf(const std::string& text, const std::string& book = "")
{
    return messageOf<CBuildError>([&] { read(text, book); });
}

/// The first line of the report.
std::string understood(const std::string& text)
{
    const std::string report = read(text).findings.text();
    return report.substr(0, report.find('\n'));
}

TEST(PlainTables, EveryDelimiterWithoutAHeader)
{
    for (const std::string delimiter : {",", ";", "\t", "|", "||"}) {
        const std::string d = delimiter;
        const std::string text = "Genesis" + d + "1" + d + "1" + d + "one\n" + "Битие" + d + "1" + d + "2" +
                                 d + "two" + d + "three\n";
        EXPECT_EQ(versesOf(text), "Gen 1:1 one\nGen 1:2 two" + d.substr(d == "\t" ? 1 : 0) +
                                      (d == "\t" ? " " : "") + "three\n")
            << d;
    }
}

TEST(PlainTables, HeadersInAnyOrderWithFurtherColumns)
{
    const std::string expected = "Gen 1:1 one\nExod 2:3 two\n";
    EXPECT_EQ(versesOf("Book,Chapter,Verse,Text\nGenesis,1,1,one\nExodus,2,3,two\n"), expected);
    EXPECT_EQ(versesOf("b|c|v|t\n1|1|1|one\n2|2|3|two\n"), expected);
    EXPECT_EQ(versesOf("Текст\tСтих\tГлава\tКнига\none\t1\t1\tБит.\ntwo\t3\t2\tИзход\n"), expected);
    const SourceBible bible = read("id,book_id,Chapter,Verse,Scripture,note\n7,1,1,1,one,x\n8,2,2,3,two,\n");
    EXPECT_EQ(linesOf(bible), expected);
    EXPECT_EQ(bible.findings.text(),
              "read as       CSV with a header: \"id\" (left out), book, chapter, verse, text, "
              "\"note\" (left out)\n"
              "left out      3 fields of further columns, first at Gen 1:1\n");
}

TEST(PlainTables, QuotedFieldsOfCommasAndSemicolons)
{
    EXPECT_EQ(versesOf("Gen,1,1,\"a, \"\"b\"\"\nc\"\r\nGen,1,\"2\", \"d\" \n"),
              "Gen 1:1 a, \"b\" c\nGen 1:2 d\n");
    EXPECT_EQ(versesOf("\"Gen\";\"1\";\"1\";\"a;b\"\n"), "Gen 1:1 a;b\n");
    EXPECT_EQ(versesOf("Gen|1|1|\"a\" b\n"), "Gen 1:1 \"a\" b\n");
}

TEST(PlainTables, BooksByNumber)
{
    EXPECT_EQ(versesOf("66,1,1,a\n1,1,1,b\n"), "Rev 1:1 a\nGen 1:1 b\n");
    EXPECT_EQ(versesOf("01O||1||1||a\n39O||1||1||b\n40N||1||1||c\n"), "Gen 1:1 a\nMal 1:1 b\nMatt 1:1 c\n");
    EXPECT_EQ(refusalOf("1,1,1,a\n67,1,1,b\n0,1,1,c\n40O,1,1,d\n"),
              "f.txt: 3 lines cannot be read:\n"
              "  line 2: \"67\" is not a book number from 1 to 66\n"
              "  line 3: \"0\" is not a book number from 1 to 66\n"
              "  line 4: \"40O\" is not a known book");
}

TEST(PlainTables, RemarksBlankLinesRangesPartsAndVerseZero)
{
    const SourceBible bible =
        read("# made by hand\n\nGen,1,0,a\nGen,1,1,b\n\nGen,1,3-4,c\nGen,1,2a,d\nGen,1,2b,e\n");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 d e\nGen 1:3 c\n");
    EXPECT_EQ(bible.findings.letters(ReaderRule::outside), 10u);
}

TEST(PlainTables, BadRecordsAreAllNamed)
{
    EXPECT_EQ(
        refusalOf("Genesis,1,1,a\nGenesys,1,1,b\nPsx,1,1,c\nQqqqqq,1,1,d\nGen,0,1,e\nGen,1,x,f\nGen,1,1\n"
                  "Gen,1,2,\"g\" h\nGen,1,3,i\nGen,1,4,\"j,\"k\"\nGen,1,5,l\nGen,1,6,\"m\n"),
        "f.txt: 9 lines cannot be read:\n"
        "  line 2: \"Genesys\" is not a known book (did you mean Gen?)\n"
        "  line 3: \"Psx\" is not a known book (did you mean Ps?)\n"
        "  line 4: \"Qqqqqq\" is not a known book\n"
        "  line 5: \"0\" is not a chapter number from 1 to 65534\n"
        "  line 6: \"x\" is not a verse number from 0 to 65534\n"
        "  line 7: has 3 fields, the table has 4\n"
        "  line 8: text after a closing quotation mark\n"
        "  line 10: text after a closing quotation mark\n"
        "  line 12: a quotation mark is never closed");
    EXPECT_EQ(refusalOf("Gen,1,1,a\nGen,1,2,\"b\n"),
              "f.txt: 1 line cannot be read:\n  line 2: a quotation mark is never closed");
    EXPECT_EQ(refusalOf("t|b|c|v\na|Gen|1|1|x\n"),
              "f.txt: 1 line cannot be read:\n  line 2: has more than 4 fields");
}

TEST(PlainTables, FirstTwentyBadLinesAreDescribed)
{
    std::string text, expected = "f.txt: 22 lines cannot be read:\n";
    for (int i = 0; i < 30; ++i)
        text += "Gen,1,1,a\n";
    for (int i = 1; i <= 22; ++i)
        text += "Gen,x,1,a\n";
    for (int i = 31; i <= 50; ++i)
        expected += "  line " + std::to_string(i) + ": \"x\" is not a chapter number from 1 to 65534\n";
    EXPECT_EQ(refusalOf(text), expected + "  and 2 more lines");
}

TEST(PlainLines, ReferencesOfEveryForm)
{
    EXPECT_EQ(versesOf("Gen 1:1 one\nGenesis 1:2\ttwo\nGenesis\t1:3\tthree\n[Gen 1:4] four\nGen.1.5 "
                       "five\nБит. 1,6 six\n"),
              "Gen 1:1 one\nGen 1:2 two\nGen 1:3 three\nGen 1:4 four\nGen 1:5 five\nGen 1:6 six\n");
    EXPECT_EQ(
        versesOf("1 Цар 2:3 a\nII Царе 2:3 b\n1 Кор. 1:1 c\nОткр. 1:1 d\nМт 1:1 e\nSong of Solomon 1:1 f\n"),
        "1Sam 2:3 a\n2Sam 2:3 b\n1Cor 1:1 c\nRev 1:1 d\nMatt 1:1 e\nSong 1:1 f\n");
    EXPECT_EQ(versesOf("GEN 1:1 a\nPrMan 1:1 b\nGen 1:3-4 c\n"), "Gen 1:1 a\nGen 1:3 c\nPrMan 1:1 b\n");
}

TEST(PlainLines, BadReferencesAreAllNamed)
{
    EXPECT_EQ(refusalOf("Gen 1:1 a\nGenesys 1:1 b\nGen 1:99999 c\nwords\n"),
              "f.txt: 3 lines cannot be read:\n"
              "  line 2: \"Genesys\" is not a known book (did you mean Gen?)\n"
              "  line 3: \"Gen 1:99999 c\" is neither a verse, such as \"Gen 1:1 text\", nor a heading\n"
              "  line 4: \"words\" is neither a verse, such as \"Gen 1:1 text\", nor a heading");
}

TEST(PlainLines, ChaptersAndVersesUnderHeadings)
{
    for (const std::string heading : {"### Genesis", "Битие", "**Genesis**", "Gen.", "# Gene"})
        for (const std::string verse : {"[1:1] one", "1:1 one", "**[1:1]** one", "1.1 one", "1:1. one"})
            EXPECT_EQ(versesOf(heading + "\n" + verse + "\n"), "Gen 1:1 one\n") << heading << verse;
    EXPECT_EQ(versesOf("Битие\nГЛАВА 1\n1:2 b\n1:1 a\nИзход\n1:1 c\nБитие\n3:1 d\n"),
              "Gen 1:1 a\nGen 1:2 b\nGen 3:1 d\nExod 1:1 c\n");
}

TEST(PlainLines, VersesUnderHeadingsOfChapters)
{
    for (const std::string heading : {"ГЛАВА 2", "Chapter 2", "Глава II", "2 глава", "### CHAPTER 2.",
                                      "Битие 2", "Битие, глава 2", "## Genesis Chapter 2"})
        for (const std::string verse : {"3 one", "[3] one", "3. one", "3) one", "**3** one"})
            EXPECT_EQ(versesOf("Битие\n" + heading + "\n" + verse + "\n"), "Gen 2:3 one\n")
                << heading << verse;
    EXPECT_EQ(versesOf("1 Царе\nГлава 1\n1 a\n2 b\n2 Царе\nГлава 1\n1 c\n"),
              "1Sam 1:1 a\n1Sam 1:2 b\n2Sam 1:1 c\n");
    EXPECT_EQ(versesOf("Псалом 3\n1 a\nПсалом 4\n1 b\n"), "Ps 3:1 a\nPs 4:1 b\n");
    EXPECT_EQ(versesOf("Юда\n1 a\n2 b\n"), "Jude 1:1 a\nJude 1:2 b\n"); // a book of one chapter
}

TEST(PlainLines, VersesOnSeveralLinesAreJoined)
{
    const SourceBible bible = read("Битие\n1:1 a\n1:1 b\n1:0 z\n\n---\n1:2 c\n");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 z a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings[ReaderRule::verseAgain].count, 1u);
}

TEST(PlainLines, HeadingsOfPartsAndRemarksAreCounted)
{
    const SourceBible bible =
        read("Моят превод\n# Title\n## Genesis\n### The beginning\n[1:1] a\n### The end\n[1:2] b\n");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:2 b\n");
    EXPECT_EQ(bible.findings.text(), "read as       lines: chapter:verse, text, the book above them\n"
                                     "left out      2 titles, first at line 4\n"
                                     "left out      2 texts outside the verses, first at line 1\n");
    EXPECT_EQ(bible.bookTitles.at(0).fullTitle, "Genesis");
}

TEST(PlainLines, UnknownHeadingsAreRefused)
{
    EXPECT_EQ(refusalOf("## Genesis\n1:1 a\n## Exodos\n1:1 b\nЛевита\n1:1 c\n"),
              "f.txt: 2 lines cannot be read:\n"
              "  line 3: \"Exodos\" is not a known book (did you mean Exod?)\n"
              "  line 5: \"Левита\" is neither a verse, such as \"1:1 text\", nor a heading");
    EXPECT_EQ(refusalOf("## Genesys\n1:1 a\n1:2 b\n"),
              "f.txt: 1 line cannot be read:\n  line 1: \"Genesys\" is not a known book (did you mean Gen?)");
}

TEST(PlainLines, VersesWithoutABookOrChapterAreRefused)
{
    EXPECT_EQ(refusalOf("\n1:1 a\n"),
              "f.txt:2: a verse before any book: write its name on a line above, or give it with --book");
    EXPECT_EQ(refusalOf("Битие\n1 a\n"),
              "f.txt:2: a verse before any chapter: write its heading above, such as Chapter 1");
}

TEST(PlainLines, HashedLinesWithMarksAndEntities)
{
    const SourceBible bible =
        read("#1:0#z\n#p##1:1#a &quot;&#1041;&#x433;&quot; &unknown; &\n#p#\n#1:2#&laquo;b&raquo;\n", "",
             "01-genesis.dat");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 z a \"Бг\" &unknown; &\nGen 1:2 «b»\n");
    EXPECT_EQ(messageOf<CBuildError>([] { read("#1:1#a\nwords\n#1#b\n", "Gen"); }),
              "f.txt: 2 lines cannot be read:\n"
              "  line 2: \"words\" is neither a verse, such as \"#1:1#text\", nor a heading\n"
              "  line 3: \"#1#b\" is neither a verse, such as \"#1:1#text\", nor a heading");
}

TEST(PlainLines, BookOfAFileIsGivenOrItsName)
{
    EXPECT_EQ(versesOf("1:1 a\n", "Матей"), "Matt 1:1 a\n");
    EXPECT_EQ(versesOf("c,v,t\n1,1,a\n", "40"), "Matt 1:1 a\n");
    for (const std::string name : {"01-genesis.dat", "genesis.txt", "01.txt", "x/001_Genesis", "Битие.txt"}) {
        const SourceBible bible = read("1:1 a\n1:2 b\n", "", name);
        EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:2 b\n");
        EXPECT_EQ(bible.findings.text(), "read as       lines: chapter:verse, text, the book above them\n"
                                         "interpreted   1 book by the name of its file, first at Gen 1:1\n");
    }
    EXPECT_EQ(linesOf(read("1:1 a\n", "", "1-corinthians.txt")), "1Cor 1:1 a\n");
    EXPECT_EQ(linesOf(read("Изход\n1:1 a\n", "", "01-genesis.dat")), "Exod 1:1 a\n");
    EXPECT_EQ(refusalOf("1:1 a\n", "Genesys"), "--book: \"Genesys\" is not a known book (did you mean Gen?)");
    EXPECT_EQ(refusalOf("Gen 1:1 a\n", "Gen"), "f.txt: names its own books, so --book cannot be used");
    EXPECT_EQ(refusalOf("Изход\n1:1 a\n", "Gen"),
              "f.txt: 1 line cannot be read:\n  line 1: \"Изход\" is not Gen, the book given with --book");
}

TEST(PlainLines, WhatHasNoShapeIsRefused)
{
    EXPECT_EQ(refusalOf("words\nand words\n"),
              "f.txt: is not a table of verses, nor one verse per line, nor verses under headings");
    EXPECT_EQ(refusalOf(""),
              "f.txt: is not a table of verses, nor one verse per line, nor verses under headings");
    EXPECT_EQ(refusalOf("b,c,v,t\n"), "f.txt: contains no verses");
}

TEST(PlainLines, ShapeIsSaid)
{
    EXPECT_EQ(understood("Gen\t1\t1\ta\n"),
              "read as       table with tabs without a header: book, chapter, verse, text");
    EXPECT_EQ(understood("Gen 1:1 a\n"), "read as       lines: book, chapter:verse, text");
    EXPECT_EQ(understood("Юда\n1 a\n"), "read as       lines: verse, text, the book and chapter above them");
}

TEST(PlainDetection, VerseLinesGoFirst)
{
    for (const char* text : {"Gen\t1\t1\ta\nExodus\t1\t1\tb\n", "# title: x\nGen\tx\t1\ta\n",
                             "Xxx\t1\t1\ta\n", "../../x\t1\t1\ta\n", "\t1\t1\ta\n", "PrMan\t1\t1\ta\n",
                             "PrManx\t1\t1\ta\n", "words\n", "", "Gen 1 1 a\n", "1 a\n"})
        EXPECT_EQ(detectFormat(text, "f"), SourceFormat::verseLines) << text;
    for (const char* text :
         {"Genesis\t1\t1\ta\n", "Битие\t1\t1\ta\n", "1\t1\t1\ta\n", "Gen 1:1 a\n", "Gen|1|1|a\n", "[1:1] a\n",
          "#1:1#a\n", "# T\n## Genesis\n1:1 a\n", "Юда\n1 a\n"})
        EXPECT_EQ(detectFormat(text, "f"), SourceFormat::plainLines) << text;
    EXPECT_EQ(detectFormat("1 a\n", "jude.txt"), SourceFormat::plainLines);
}

TEST(PlainDetection, FoldersOfFilesWithoutUsfm)
{
    const TempFolder folder;
    folder.write("02-exodus.dat", "#1:1#b\n");
    folder.write("01-genesis.dat", "#1:1#a\n");
    folder.write("README", "Words.\n");
    folder.write(".hidden", "Gen 1:1 x\n");
    const SourceBible bible = readSourceFile(folder.path().string(), {});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nExod 1:1 b\n");
    EXPECT_EQ(bible.findings.text(),
              "read as       lines: #chapter:verse#text\n"
              "interpreted   Gen for the book, by the name of the file 01-genesis.dat\n"
              "interpreted   Exod for the book, by the name of the file 02-exodus.dat\n"
              "left out      the file README, which contains no verses\n");
    ReadOptions plain;
    plain.format = SourceFormat::plainLines;
    const TempFolder none;
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(none.path().string(), plain); }),
              none.path().string() + ": contains no file of plain lines");
    plain.book = "Gen";
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(folder.path().string(), plain); }),
              folder.path().string() + ": --book is for a file of plain lines");
}

TEST(PlainDetection, BookIsGivenOnlyToPlainLines)
{
    const TempFolder folder;
    ReadOptions options;
    options.book = "Jude";
    EXPECT_EQ(linesOf(readSourceFile(folder.write("a.txt", "1 a\n"), options)), "Jude 1:1 a\n");
    for (const char* text :
         {"\\id GEN\n\\c 1\n\\v 1 a\n", "<osis><verse osisID='Gen.1.1'>a</verse></osis>"}) {
        const std::string file = folder.write("b", text);
        EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(file, options); }),
                  file + ": --book is for a file of plain lines");
    }
}

TEST(PlainDetection, Windows1251IsRecognisedByItsLetters)
{
    const TempFolder folder;
    const std::string words =
        "\xC2 \xED\xE0\xF7\xE0\xEB\xEE \xC1\xEE\xE3 \xF1\xFA\xE7\xE4\xE0\xE4\xE5 \xED\xE5\xE1\xE5\xF2\xEE";
    const SourceBible bible = readSourceFile(folder.write("a.txt", "Gen 1:1 " + words + "\n"), {});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог създаде небето\n");
    EXPECT_NE(bible.findings.text().find("encoding      windows-1251, recognised\n"), std::string::npos);
    const std::string broken = folder.write("b.txt", "Gen 1:1 \xC2\xC2\n");
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(broken, {}); }), broken + ":1: not valid UTF-8");
    ReadOptions utf8;
    utf8.encoding = "UTF-8";
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(folder.file("a.txt"), utf8); }),
              folder.file("a.txt") + ":1: not valid UTF-8");
}

TEST(PlainDetection, OtherEncodingsAreNotTakenForWindows1251)
{
    EXPECT_FALSE(isWindows1251("Les \xE9t\xE9s \xE0 l'\xE9t\xE9, o\xF9 l'\xE9t\xE9 \xE9tait \xE9t\xE9; "
                               "d\xE9j\xE0 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9"));
    // "в начало бог създаде небето и земята" in KOI8-R
    EXPECT_FALSE(isWindows1251("\xD7 \xCE\xC1\xDE\xC1\xCC\xCF \xC2\xCF\xC7 \xD3\xDF\xDA\xC4\xC1\xC4\xC5 "
                               "\xCE\xC5\xC2\xC5\xD4\xCF \xC9 \xDA\xC5\xCD\xD1\xD4\xC1"));
    EXPECT_FALSE(isWindows1251("В начало Бог създаде небето и земята.\xFF"));
    EXPECT_FALSE(isWindows1251("\xE0\xE1\xE2"));
}

} // namespace
