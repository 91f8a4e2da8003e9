// Plain text with verses: what is understood of each structure, and what is refused with which words.

#include "book_finder.h"
#include "plain_text.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace plain_test;
using test_support::linesOf;
using test_support::messageOf;

namespace {

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

} // namespace
