#include "zefania_reader.h"

#include "errors.h"
#include "source_text.h"
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
    return readZefania("f.xml", "<XMLBIBLE biblename='Name'>" + content + "</XMLBIBLE>");
}

SourceBible chapter(const std::string& verses)
{
    return read("<BIBLEBOOK bnumber='1' bname='Genesis' bsname='Gen'><CHAPTER cnumber='1'>" + verses +
                "</CHAPTER></BIBLEBOOK>");
}

std::string errorIn(const std::string& content)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(content)); });
}

} // namespace

TEST(ZefaniaReader, VersesOfBooksByNumber)
{
    EXPECT_EQ(
        linesOf(read(
            "<BIBLEBOOK bnumber='66'><CHAPTER cnumber='2'><VERS vnumber='1'>a</VERS></CHAPTER></BIBLEBOOK>"
            "<BIBLEBOOK bnumber='69'><CHAPTER cnumber='1'><VERS vnumber='2'>b</VERS></CHAPTER></BIBLEBOOK>"
            "<BIBLEBOOK bnumber='99'><CHAPTER cnumber='1'><VERS vnumber='1'>c</VERS></CHAPTER></BIBLEBOOK>")),
        "Rev 2:1 a\nTob 1:2 b\nBook99 1:1 c\n");
}

TEST(ZefaniaReader, LexicalMarksAndStylesArePlainText)
{
    EXPECT_EQ(
        linesOf(chapter(
            "<VERS vnumber='1'>In <gr str='1'>the</gr><BR art='x-nl'/><STYLE css='x'>be</STYLE>gin</VERS>")),
        "Gen 1:1 In the begin\n");
}

TEST(ZefaniaReader, NotesReferencesAndCaptionsAreLeftOutAndCounted)
{
    const SourceBible bible =
        chapter("<CAPTION vref='1'>Head</CAPTION><PROLOG>P</PROLOG><REMARK>R</REMARK>"
                "<VERS vnumber='1'>one<DIV><NOTE>n</NOTE></DIV>two<XREF>x</XREF></VERS>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\n");
    EXPECT_EQ(bible.findings.text(), "left out      2 notes, first at Gen 1:1\n"
                                     "left out      2 titles, first at line 1\n"
                                     "left out      1 text outside the verses, first at line 1\n");
}

TEST(ZefaniaReader, RangesAndVerseZero)
{
    const SourceBible bible = chapter("<VERS vnumber='0'>T</VERS><VERS vnumber='1' enumber='2'>a</VERS>"
                                      "<VERS vnumber='3-4'>b</VERS><VERS vnumber='5'/>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 T a\nGen 1:3 b\nGen 1:5\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        2 ranges of verses, with the text in the first, first at Gen 1:1\n"
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST(ZefaniaReader, NamesInSmallLettersAreTheSame)
{
    EXPECT_EQ(linesOf(readZefania(
                  "f.xml", "<xmlbible><biblebook bnumber='1'><chapter cnumber='1'>"
                           "<vers vnumber='1'>a<note>n</note></vers></chapter></biblebook></xmlbible>")),
              "Gen 1:1 a\n");
}

TEST(ZefaniaReader, TitlesAndCopyright)
{
    const SourceBible bible =
        read("<INFORMATION><title>Other</title><identifier>Id</identifier><rights>Free</rights>"
             "</INFORMATION><BIBLEBOOK bnumber='1' bname='Genesis' bsname='Gen'>"
             "<CHAPTER cnumber='1'><VERS vnumber='1'>a</VERS></CHAPTER></BIBLEBOOK>");
    EXPECT_EQ(bible.info.fullTitle, "Name");
    EXPECT_EQ(bible.info.shortTitle, "Id");
    EXPECT_EQ(bible.info.copyright, std::vector<std::string>{"Rights: Free"});
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Genesis");
    EXPECT_EQ(bible.bookTitles[0].abbreviatedTitle, "Gen");
}

TEST(ZefaniaReader, BookWithoutANumberIsTakenByItsName)
{
    const std::string verse = "<CHAPTER cnumber='1'><VERS vnumber='1'>a</VERS></CHAPTER></BIBLEBOOK>";
    for (const std::string book :
         {"bnumber='0' bname='Genesis'", "bname='Genesis'", "bnumber='' bsname='Gen'",
          "bnumber='x' bname='БИТИЕ'", "bnumber='0' bname='Book one' bsname='Бит.'",
          "bnumber='70000' bname='genes'", "bnumber='Gen'"}) {
        const SourceBible bible = read("<BIBLEBOOK " + book + ">" + verse);
        EXPECT_EQ(linesOf(bible), "Gen 1:1 a\n") << book;
        EXPECT_EQ(bible.findings.text(),
                  "interpreted   1 book without a number or code by its name, first at line 1\n")
            << book;
    }
    EXPECT_EQ(errorIn("<BIBLEBOOK bnumber='0' bname='Jo'>" + verse),
              "f.xml:1: \"0\" is not a book number, and \"Jo\" is not a known book name: write the "
              "number in bnumber, such as 1 for Genesis");
    EXPECT_EQ(linesOf(read("<BIBLEBOOK bnumber='0' bname='Preface'>Words</BIBLEBOOK><BIBLEBOOK bnumber='1'>" +
                           verse)),
              "Gen 1:1 a\n");
}

TEST(ZefaniaReader, RefusesANumberAndANameOfDifferentBooks)
{
    const std::string verse = "<CHAPTER cnumber='1'><VERS vnumber='1'>a</VERS></CHAPTER></BIBLEBOOK>";
    EXPECT_EQ(errorIn("<BIBLEBOOK bnumber='1' bname='Битие'>" + verse +
                      "\n<BIBLEBOOK bnumber='3' bname='Изход'>" + verse),
              "f.xml:2: the book is Lev by its number, but Exod by its name: correct one of them");
    for (const auto& [book, line] : std::vector<std::pair<std::string, std::string>>{
             {"bnumber='9' bname='1 Царства'", "1Sam 1:1 a\n"},
             {"bnumber='9' bname='1 Kings'", "1Sam 1:1 a\n"},
             {"bnumber='11' bname='3 Царе'", "1Kgs 1:1 a\n"},
             {"bnumber='15' bname='1 Esdras'", "Ezra 1:1 a\n"},
             {"bnumber='16' bname='2 Esdras'", "Neh 1:1 a\n"},
             {"bnumber='7' bname='Das Buch der Richter' bsname='Jud'", "Judg 1:1 a\n"},
             {"bnumber='2' bname='The Second Book of Moses'", "Exod 1:1 a\n"}}) {
        const SourceBible bible = read("<BIBLEBOOK " + book + ">" + verse);
        EXPECT_EQ(linesOf(bible), line);
        EXPECT_EQ(bible.findings.text(), "");
    }
}

TEST(ZefaniaReader, KnownNameDecidesForANumberAbove66)
{
    const std::string verse = "<CHAPTER cnumber='1'><VERS vnumber='1'>a</VERS></CHAPTER></BIBLEBOOK>";
    for (const auto& [book, line] :
         std::vector<std::pair<std::string, std::string>>{{"bnumber='67' bname='Товит'", "Tob 1:1 a\n"},
                                                          {"bnumber='80' bname='2 Esdras'", "2Esd 1:1 a\n"},
                                                          {"bnumber='99' bname='Tobit'", "Tob 1:1 a\n"}}) {
        const SourceBible bible = read("<BIBLEBOOK " + book + ">" + verse);
        EXPECT_EQ(linesOf(bible), line);
        EXPECT_EQ(bible.findings.text(),
                  "interpreted   1 book without a number or code by its name, first at line 1\n");
    }
    for (const auto& [book, line] : std::vector<std::pair<std::string, std::string>>{
             {"bnumber='69' bname='Товит'", "Tob 1:1 a\n"},
             {"bnumber='67' bname='Judit' bsname='Jud'", "Jdt 1:1 a\n"},
             {"bnumber='74' bname='Daniel'", "AddDan 1:1 a\n"},
             {"bnumber='75' bname='Естир'", "AddEsth 1:1 a\n"},
             {"bnumber='81' bname='Qwerty'", "2Esd 1:1 a\n"}}) {
        const SourceBible bible = read("<BIBLEBOOK " + book + ">" + verse);
        EXPECT_EQ(linesOf(bible), line);
        EXPECT_EQ(bible.findings.text(), "");
    }
}

TEST(ZefaniaReader, InvalidNumbersAreTolerated)
{
    const SourceBible bible =
        read("<BIBLEBOOK bnumber='1'><CHAPTER cnumber='70000'><VERS>a</VERS><VERS vnumber='1'>b</VERS>"
             "<VERS vnumber='?'>c</VERS><VERS vnumber=' 2.'>d</VERS><VERS vnumber='70000'>e</VERS></CHAPTER>"
             "<CHAPTER cnumber=''><VERS vnumber='1'>f</VERS></CHAPTER></BIBLEBOOK>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b c\nGen 1:2 d e\nGen 2:1 f\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 verse 0, put before the next verse, first at Gen 1:0\n"
              "joined        3 verses without a number, with the verses before them, first at Gen 1:0\n"
              "interpreted   2 chapters without a number as the next ones, first at line 1\n");
}

TEST(ZefaniaReader, ChapterAfterTheLastNumberStaysInRange)
{
    EXPECT_EQ(linesOf(read("<BIBLEBOOK bnumber='1'><CHAPTER cnumber='65534'/><CHAPTER/><CHAPTER>"
                           "<VERS vnumber='1'>a</VERS></CHAPTER></BIBLEBOOK>")),
              "Gen 65534:1 a\n");
}

TEST(ZefaniaReader, ChapterZeroOrNoneIsOfTheFirst)
{
    EXPECT_EQ(linesOf(read("<BIBLEBOOK bnumber='1'><CHAPTER cnumber='0'><VERS vnumber='1'>a</VERS></CHAPTER>"
                           "<CHAPTER cnumber='1'><VERS vnumber='1'>b</VERS></CHAPTER></BIBLEBOOK>")),
              "Gen 1:1 a b\n");
    EXPECT_EQ(linesOf(read("<BIBLEBOOK bnumber='31'><VERS vnumber='1'>a</VERS></BIBLEBOOK>")),
              "Obad 1:1 a\n");
}

TEST(ZefaniaReader, RefusesVersesOutsideABook)
{
    EXPECT_EQ(errorIn("<CHAPTER cnumber='1'><VERS vnumber='1'>a</VERS></CHAPTER>"),
              "f.xml:1: a verse before any BIBLEBOOK");
    EXPECT_EQ(errorIn(""), "f.xml: contains no verses");
}

TEST(ZefaniaReader, ExampleOfTheFormatPage)
{
    const SourceBible bible = readZefania(
        "f.xml",
        R"(<XMLBIBLE biblename="Тест"><BIBLEBOOK bnumber="1" bname="Битие"><CHAPTER cnumber="1"><CAPTION vref="1">Светът
</CAPTION><VERS vnumber="1">В <gr str="7225">начало</gr><NOTE>бел.</NOTE> Бог</VERS></CHAPTER></BIBLEBOOK></XMLBIBLE>
)");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 note, first at Gen 1:1\n"
                                     "left out      1 title, first at line 1\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
}
