// Tables of verses: what is understood, and what is refused with which words.

#include "plain_text.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace plain_test;
using test_support::linesOf;
using test_support::messageOf;

namespace {

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

// A text may have a line that looks like a record; a table has mostly such lines.
TEST(PlainTables, HalfOfTheFirstLinesAreRecords)
{
    const std::string record = "Genesis|1|1|one\n", other = "Genesis 1:2 two\n";
    EXPECT_EQ(versesOf(record + other + "Genesis 1:3 three\n"), "Gen 1:2 two\nGen 1:3 three\n");
    EXPECT_NE(messageOf<CBuildError>([&] {
                  versesOf(record + other);
              }).find("line 2: has 1 field, the table has 4"),
              std::string::npos);
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

} // namespace
