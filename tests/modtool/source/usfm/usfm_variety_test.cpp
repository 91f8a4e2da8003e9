// USFM as written by different programs and projects (doc/formats/usfm.md).

#include "errors.h"
#include "read_source.h"
#include "source_text.h"
#include "temp_folder.h"
#include "usfm_reader.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::TempFolder;

SourceBible read(const std::string& text)
{
    CUsfmReader reader;
    reader.read("f.usfm", text);
    return reader.finish("f.usfm");
}

SourceBible inVerse(const std::string& text) { return read("\\id GEN\n\\c 1\n\\p\n\\v 1 " + text); }

TEST(UsfmVariety, CellsThatSpanColumnsAreSeparate)
{
    const SourceBible bible = inVerse("\\tr \\th1 one\\thr2-3 two\\tc1-2 three\\tcr3 four\\tcc4-5 five");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three four five\n");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(UsfmVariety, ListsAreSeparate)
{
    EXPECT_EQ(linesOf(inVerse("\n\\lh one\n\\li1 two\n\\li2 three \\lik four\\lik* \\liv1 five\\liv1*"
                              "\n\\lf six\n\\lim1 seven\n\\b\n\\pb\n\\pi2 eight")),
              "Gen 1:1 one two three four five six seven eight\n");
}

TEST(UsfmVariety, AttributesOfEveryForm)
{
    const SourceBible bible =
        inVerse("\\rb BB|gloss=\"g:g\"\\rb* \\w a b|lemma=\"c\" x-n=\"d|e\"\\w* "
                "\\jmp f|link-href=\"x\"\\jmp* \\xt g|GEN 1:1\\xt* \\png h\\png* \\addpn i\\addpn*");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 BB a b f g h i\n");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(UsfmVariety, BarWithoutAnAttributeStays)
{
    EXPECT_EQ(linesOf(inVerse("one \\zz two | three \\nd four\\nd* five|six")),
              "Gen 1:1 one two | three four five|six\n");
}

TEST(UsfmVariety, AlignmentMilestonesAreLeftOut)
{
    const SourceBible bible =
        inVerse("\\zaln-s |x-strong=\"H1\" x-content=\"\u05D1\"\\*\\w In|x-occurrence=\"1\"\\w*\n"
                "\\w the|x\\w*\\zaln-e\\*,\n\\k-s | x-tw=\"rc://*/tw/god\"\n\\w God|x\\w*\n"
                "\\k-e\\* \\ts\\* end");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 In the, God end\n");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(UsfmVariety, NotesOfEveryForm)
{
    const SourceBible bible =
        inVerse("one\\f + \\fr 1:1 \\fk a \\fl b \\fw c \\fp d \\fv 3\\fv* \\ft e \\fdc f\\fdc*\\f* "
                "two\\ef - \\cat People\\cat*\\fr 1:1: \\ft long\\ef* three\\ex + \\xo 1:1 \\xt x\\ex*, "
                "four\\rq Gen 2:2\\rq* five\\fe * \\ft g\\fe*");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three, four five\n");
    EXPECT_EQ(bible.findings.text(), "left out      5 notes, first at Gen 1:1\n");
}

TEST(UsfmVariety, NoteInsideAWordDoesNotDivideIt)
{
    EXPECT_EQ(linesOf(inVerse("\\w begin\\f + \\ft n\\f*ning|x=\"y\"\\w* of\\f + \\ft n\\f*time")),
              "Gen 1:1 beginning of time\n");
}

TEST(UsfmVariety, HeadingsOfEveryFormAreLeftOut)
{
    const SourceBible bible = read(
        "\\id PSA\n\\ide UTF-8\n\\sts 2\n\\h Psalms\n\\toc1 Psalms\n\\toca1 Ps\n\\mt1 Psalms\n\\cl Psalm\n"
        "\\c 1\n\\cl Psalm One\n\\cd About it\n\\cp 1a\n\\ms1 Book\n\\mr (1-41)\n\\s1 Head\n\\sr (1-2)\n"
        "\\r (x)\n\\qa Aleph\n\\q1\n\\v 1 one\n\\s5\n\\v 2 two\n\\sd2\n\\sp God\n\\p three\n\\mte End\n");
    EXPECT_EQ(linesOf(bible), "Ps 1:1 one\nPs 1:2 two three\n");
    EXPECT_EQ(bible.findings.text(), "left out      11 titles, first at line 7\n"
                                     "left out      2 texts outside the verses, first at line 11\n");
}

TEST(UsfmVariety, PsalmTitleEndsWithItsParagraph)
{
    const SourceBible bible = read("\\id PSA\n\\c 3\n\\d A psalm.\n\\q1\nOf whom?\n\\v 1 Lord\n");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 A psalm. Lord\n");
    EXPECT_NE(bible.findings.text().find("Of whom?"), std::string::npos) << bible.findings.text();
}

TEST(UsfmVariety, SelahAndSongsOfThePsalmsAreText)
{
    const SourceBible bible =
        read("\\id PSA\n\\c 3\n\\d A psalm\\f + \\ft n\\f*of \\nd David\\nd*.\n\\b\n"
             "\\q1 \\v 1 Lord\n\\qr right \\qs Selah\\qs*\n\\qc Amen\n\\qd To the choir\n"
             "\\qac A\\qac*men");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 A psalm of David. Lord right Selah Amen To the choir Amen\n");
}

TEST(UsfmVariety, SecondNumbersOfEveryForm)
{
    const SourceBible bible =
        read("\\id PSA\n\\c 3\n\\ca 2\\ca*\n\\p\n\\v 1a one \\v 1b \\vp 1\u03B2\\vp*two "
             "\\v 2\u00A0three \\v 3-4 \\va 2-3\\va* four\n\\v 0 zero");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 zero one two\nPs 3:2 three\nPs 3:3 four\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        1 range of verses, with the text in the first, first at Ps 3:3\n"
              "joined        2 parts of verses, first at Ps 3:1\n"
              "joined        1 verse 0, put before the next verse, first at Ps 3:0\n"
              "left out      3 numbers in another numbering, first at line 3\n");
}

TEST(UsfmVariety, PartsMayHaveCyrillicLetters)
{
    const SourceBible bible = read("\\id GEN\n\\c 1\n\\v 1а one\n\\v 1б-2 two\n\\v 3я three");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\nGen 1:3 three\n");
    EXPECT_EQ(bible.findings[ReaderRule::versePart].count, 3u);
    EXPECT_EQ(linesOf(read("\\id GEN\n\\c 1\n\\v 1А one")), "Gen 1:1 А one\n");
    EXPECT_EQ(linesOf(read("\\id GEN\n\\c 1\n\\v 1\xD0")), "Gen 1:1 \xD0\n");
}

TEST(UsfmVariety, WordWithoutAnEndEndsWithItsParagraph)
{
    EXPECT_EQ(linesOf(inVerse("\\w one\n\\p two\\f + \\ft n\\f*three")), "Gen 1:1 one two three\n");
}

TEST(UsfmVariety, VersesGivenTwiceAreJoined)
{
    const SourceBible bible = inVerse("a\n\\v 2 c\n\\p\n\\v 1 b\n\\v 2 c\n\\c 1\n\\v 3 d");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\nGen 1:3 d\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(UsfmVariety, FrontMatterGlossaryAndExtraBooksAreNotInTheGlobalNumbering)
{
    const SourceBible bible = read(
        "\\id FRT\n\\periph Title Page|id=\"title\"\n\\mt1 Bible\n\\p Words\n\\id GEN\n\\c 1\n\\v 1 one\n"
        "\\id GLO\n\\p \\k Grace\\k* favour\n\\id XXA\n\\c 1\n\\p\n\\v 1 extra\n");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one\nXXA 1:1 extra\n");
    EXPECT_EQ(bible.books, (std::vector<std::string>{"FRT", "Gen", "GLO", "XXA"}));
    EXPECT_EQ(bible.findings.text(), "left out      1 title, first at line 3\n"
                                     "left out      3 texts outside the verses, first at line 2\n");
}

TEST(UsfmVariety, SidebarsAndPicturesAreLeftOut)
{
    const SourceBible bible =
        inVerse("one\n\\esb \\cat History\\cat*\n\\ms Side\n\\p Text \\w word\\w*\n\\esbe\n"
                "\\p two\\fig Cap|a.jpg|col|||Text|1:1\\fig* three \\pro pro\\pro*");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three\n");
    EXPECT_EQ(bible.findings.text(), "left out      2 figures or index entries, first at Gen 1:1\n"
                                     "left out      1 text outside the verses, first at Gen 1:1\n");
}

TEST(UsfmVariety, UnknownMarkersOfEveryKindKeepTheirText)
{
    const SourceBible bible = inVerse("one \\zcustom two\\zcustom* \\+zz three\\+zz*\n\\zpara four \\ five");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three four five\n");
    EXPECT_EQ(bible.findings.text(), "kept          4 texts of unknown markers, first at Gen 1:1\n");
}

std::string inMarker(const std::string& marker, const std::string& text)
{
    return '\\' + marker + ' ' + text + '\\' + marker + '*';
}

TEST(UsfmVariety, CharacterMarkersOfTheStandardAreKnown)
{
    for (const std::string marker :
         {"add", "bk", "dc",  "k",    "nd",  "ord", "pn", "png", "addpn", "qt",   "sig", "sls",
          "tl",  "wj", "em",  "bd",   "it",  "sc",  "no", "w",   "wg",    "wh",   "wa",  "ndx",
          "rb",  "qs", "qac", "bdit", "sup", "jmp", "xt", "lik", "liv1",  "litl", "ior", "iqt"}) {
        const SourceBible bible =
            inVerse("a " + inMarker(marker, "b") + " c \\add d " + inMarker('+' + marker, "e") + "\\add* f");
        EXPECT_EQ(linesOf(bible), "Gen 1:1 a b c d e f\n") << marker;
        EXPECT_EQ(bible.findings.text(), "") << marker;
    }
}

TEST(UsfmVariety, TitlesOfBooksArePlain)
{
    const SourceBible bible = read("\\id GEN\n\\toc1 First~Book//of Moses\n\\c 1\n\\v 1 a\n"
                                   "\\id EXO\n\\mt1 The \\nd Lord\\nd*\\f + \\ft note\\f*\n\\c 1\n\\v 1 b");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "First Book of Moses");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nExod 1:1 b\n");
    EXPECT_EQ(bible.bookTitles[1].fullTitle.find("note"), std::string::npos);
}

TEST(UsfmVariety, FileOfManyBooksInAnyOrderWithMarkAndCarriageReturns)
{
    const TempFolder folder;
    const std::string file = folder.write(
        "all.sfm", "\xEF\xBB\xBF\\id MAT\r\n\\c 1\r\n\\p\r\n\\v 1 one\r\ntwo\r\n\\id GEN\r\n\\c 2\r\n"
                   "\\v 1 c\r\n\\c 1\r\n\\v 1 b\r\n");
    EXPECT_EQ(linesOf(readSourceFile(file, {})), "Matt 1:1 one two\nGen 1:1 b\nGen 2:1 c\n");
}

TEST(UsfmVariety, Windows1251OfAnIde)
{
    const TempFolder folder;
    const std::string file =
        folder.write("01.sfm", "\\id GEN\n\\ide 1251 - Cyrillic\n\\c 1\n\\v 1 \xC1\xEE\xE3\n");
    EXPECT_EQ(linesOf(readSourceFile(file, {})), "Gen 1:1 Бог\n");
}

TEST(UsfmVariety, HiddenFilesOfAFolderAreIgnored)
{
    const TempFolder folder;
    folder.write("01-GEN.usfm", "\\id GEN\n\\c 1\n\\v 1 a");
    folder.write("._01-GEN.usfm", std::string("\0\5\x16\7", 4));
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), {})), "Gen 1:1 a\n");
}

} // namespace
