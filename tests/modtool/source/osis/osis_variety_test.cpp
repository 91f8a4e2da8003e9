// OSIS as written by different programs (doc/formats/osis.md).

#include "osis_reader.h"
#include "source_text.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;
using test_support::linesOf;

SourceBible read(const std::string& content)
{
    return readOsis("f.xml", "<osis><osisText osisIDWork='T'>" + content + "</osisText></osis>");
}

std::string linesIn(const std::string& content) { return linesOf(read(content)); }

std::string verse(const std::string& content) { return "<verse osisID='Gen.1.1'>" + content + "</verse>"; }

TEST(OsisVariety, PrefixedNamesAreTheSame)
{
    EXPECT_EQ(
        linesOf(readOsis("f.xml", "<?xml version='1.0'?><o:osis xmlns:o='http://www.bibletechnologies.net/"
                                  "2003/OSIS/namespace'><o:osisText><o:div type='book' osisID='Gen'>"
                                  "<o:verse osisID='Gen.1.1'>one <o:note>n</o:note>two</o:verse></o:div>"
                                  "</o:osisText></o:osis>")),
        "Gen 1:1 one two\n");
}

TEST(OsisVariety, CommentsAndInstructionsDoNotDivideWords)
{
    EXPECT_EQ(linesIn(verse("be<!-- a comment -->gin<?page 1?>ning<![CDATA[ & <end>]]>")),
              "Gen 1:1 beginning & <end>\n");
}

TEST(OsisVariety, MilestoneVersesCrossParagraphsAndLinesOfAnyForm)
{
    EXPECT_EQ(
        linesIn("<p><verse sID='1' osisID='Gen.1.1'/>one</p><p>two<verse eID='1'/></p>"
                "<lg sID='g'/><l sID='l1' level='1'/><verse sID='2' osisID='Gen.1.2'/>three<l eID='l1'/>"
                "<l sID='l2' level='2'/>four<verse eID='2'/><l eID='l2'/><lg eID='g'/>"
                "<lg><l><verse sID='3' osisID='Gen.1.3'/>five</l><l>six<caesura/>seven<verse eID='3'/></l>"
                "</lg>"),
        "Gen 1:1 one two\nGen 1:2 three four\nGen 1:3 five six seven\n");
}

TEST(OsisVariety, ListsOfReferencesWithTheirWorks)
{
    const SourceBible bible =
        read("<div type='book' osisID='Bible.KJV:Gen'>"
             "<verse sID='a' osisID='Bible.KJV:Gen.1.1 Bible.KJV:Gen.1.2'/>a<verse eID='a'/>"
             "<verse osisID='Bible.KJV:Gen.1.3\n Bible.KJV:Gen.1.4 '>b</verse></div>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:3 b\n");
    EXPECT_EQ(bible.findings[ReaderRule::verseRange].count, 2u);
}

TEST(OsisVariety, VersesWithoutAnEndEndWithTheNextOneOrTheChapter)
{
    const SourceBible bible = read("<chapter osisID='Gen.1'><verse osisID='Gen.1.1'/>one"
                                   "<verse osisID='Gen.1.2'/>two</chapter>"
                                   "<chapter osisID='Gen.2'>label<verse osisID='Gen.2.1'/>three</chapter>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one\nGen 1:2 two\nGen 2:1 three\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 text outside the verses, first at line 1\n");
}

TEST(OsisVariety, EmptyElementsMayBeWrittenWithAnEndTag)
{
    EXPECT_EQ(linesIn("<verse sID='a' osisID='Gen.1.1'></verse>one<verse eID='a'></verse>"
                      "<verse osisID='Gen.1.2'></verse><verse osisID='Gen.1.3'>three "
                      "<q sID='q' marker='„'></q>four<q eID='q' marker='“'></q></verse>"),
              "Gen 1:1 one\nGen 1:2\nGen 1:3 three „four“\n");
}

TEST(OsisVariety, EndOfAnotherVerseIsIgnored)
{
    EXPECT_EQ(linesIn("<verse sID='a' osisID='Gen.1.1'/>one<verse sID='b' osisID='Gen.1.2'/>two"
                      "<verse eID='a'/> three<verse eID='b'/>"),
              "Gen 1:1 one\nGen 1:2 two three\n");
}

TEST(OsisVariety, WordsOfChristBetweenMilestones)
{
    const SourceBible bible = read(verse("He said, <q who='Jesus' sID='q' marker='\u201C'/>Follow"
                                         "</verse><verse osisID='Gen.1.2'>me.<q who='Jesus' eID='q' "
                                         "marker='\u201D'/>"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 He said, \u201CFollow\nGen 1:2 me.\u201D\n");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(OsisVariety, MarkOfAContinuedQuotationAttachesToTheNextWord)
{
    EXPECT_EQ(linesIn(verse("one <milestone type='cQuote' marker='\u201C'/>two, "
                            "<milestone type='x-p' marker='\u00B6'/>three<milestone type='line'/>four")),
              "Gen 1:1 one \u201Ctwo, \u00B6 three four\n");
}

TEST(OsisVariety, MarkersOfUsfmGoAndAreCounted)
{
    const SourceBible bible = read("\\p x" + verse("the \\nd <w>LORD</w>\\+nd* said\\q2 \\ 1\\2"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 the LORD said \\ 1\\2\n");
    EXPECT_EQ(bible.findings.text(), "kept          3 texts of unknown markers, first at Gen 1:1\n"
                                     "left out      1 text outside the verses, first at line 1\n");
}

TEST(OsisVariety, WordBehindABackslashStays)
{
    for (const char* text : {"\\43:1\\Now the land", "\\43:1\\it came", "a\\n b\\Add c",
                             "C:\\p C:\\dir\\q1 x", "it\\it x", "\\foo* \\+\\x\\ \\q1„", "\\line5 \\ND x"})
        EXPECT_EQ(linesIn(verse(text)), "Gen 1:1 " + std::string(text) + "\n");
}

TEST(OsisVariety, KnownMarkersOfUsfmGoWhereTheyMayStand)
{
    EXPECT_EQ(linesIn(verse("\\p \\nd Lord\\nd*, \\+add (\\wj O\\+nd God\\+nd*\\wj* \\ft note\\f*")),
              "Gen 1:1 Lord, (OGod note\n");
    EXPECT_EQ(linesIn(verse("\\p\\q1\\nd Lord\\nd*")), "Gen 1:1 Lord\n");
}

TEST(OsisVariety, MarkersOfParagraphsAndLinesDoNotJoinWords)
{
    EXPECT_EQ(linesIn(verse("one\\q1 two\\p\nthree.\\line four\\m")), "Gen 1:1 one two three. four\n");
    EXPECT_EQ(linesIn(verse("one\\q2<w>two</w>\\tc3 three")), "Gen 1:1 one two three\n");
}

TEST(OsisVariety, NoteInsideAWordDoesNotDivideIt)
{
    EXPECT_EQ(linesIn(verse("<w lemma='x'>begin<note>n</note>ning</w> <w>of<note>n</note></w>time")),
              "Gen 1:1 beginning of time\n");
}

TEST(OsisVariety, NoteInAPsalmTitleDoesNotJoinWords)
{
    EXPECT_EQ(
        linesIn("<div type='book' osisID='Gen'><title type='psalm'>A psalm<note>n</note>of David.</title>" +
                verse("Lord") + "</div>"),
        "Gen 1:1 A psalm of David. Lord\n");
}

TEST(OsisVariety, PsalmTitleThatIsAVerse)
{
    const SourceBible bible = read("<div type='book' osisID='Ps'><chapter osisID='Ps.3'><title type='psalm' "
                                   "canonical='true'><verse sID='a' osisID='Ps.3.1'/>A psalm.<verse eID='a'/>"
                                   "</title><verse osisID='Ps.3.2'>Lord</verse></chapter></div>");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 A psalm.\nPs 3:2 Lord\n");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(OsisVariety, TitlesAndSignsWithoutAVerseAreCountedWhereTheyStand)
{
    const std::string genesis = "<div type='book' osisID='Gen'>" + verse("one") + "</div>";
    EXPECT_EQ(read("<div type='book' osisID='Ps'>\n<title type='psalm'>A psalm.</title>\n</div>" + genesis)
                  .findings.text(),
              "left out      1 text outside the verses, first at line 2\n");
    EXPECT_EQ(read("<div type='book' osisID='Ps'>\n<q marker='x' who='Jesus' sID='a'/>\n</div>" + genesis)
                  .findings.text(),
              "left out      1 text outside the verses, first at line 2\n");
}

TEST(OsisVariety, VerseInsideAnyOtherTitleStays)
{
    const SourceBible bible =
        read("<title>Head <verse osisID='Gen.1.1'>one</verse></title><verse osisID='Gen.1.2'>two</verse>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one\nGen 1:2 two\n");
}

TEST(OsisVariety, TitleThatIsNotCanonicalIsAHeading)
{
    const SourceBible bible = read("<title type='psalm' canonical='false'>Head</title>" +
                                   verse("one<title type='sub'>S</title>two"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\n");
    EXPECT_EQ(bible.findings.text(), "left out      2 titles, first at line 1\n");
}

TEST(OsisVariety, FirstWorkIsUsedIfNoneIsNamed)
{
    const std::string header = "<header><revisionDesc><p>r</p></revisionDesc><work osisWork='A'><title>First"
                               "</title></work><work osisWork='B'><title>Second</title></work></header>";
    EXPECT_EQ(read(header + verse("a")).info.fullTitle, "First");
    EXPECT_EQ(readOsis("f.xml",
                       "<osis><osisText osisIDWork='Bible.B'>" + header + verse("a") + "</osisText></osis>")
                  .info.fullTitle,
              "Second");
}

TEST(OsisVariety, CorpusOfOneText)
{
    EXPECT_EQ(linesOf(readOsis("f.xml", "<osis><osisCorpus><header/><osisText osisIDWork='T'><header><work "
                                        "osisWork='T'><title>t</title></work></header>" +
                                            verse("a") + "</osisText></osisCorpus></osis>")),
              "Gen 1:1 a\n");
}

TEST(OsisVariety, GroupsColophonsTablesAndListsLoseNothingSilently)
{
    const SourceBible bible = read("<div type='bookGroup'><title>Law</title><div type='book' osisID='Gen'>" +
                                   verse("<list><head>h</head><item>one</item><item>two</item></list>"
                                         "<table><row><cell>three</cell><cell>four</cell></row></table>") +
                                   "<div type='colophon'>Written from Rome</div></div></div>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three four\n");
    EXPECT_EQ(bible.findings.text(), "left out      2 titles, first at line 1\n"
                                     "left out      1 text outside the verses, first at line 1\n");
}

TEST(OsisVariety, QuotationThatBeginsBeforeItsVerse)
{
    EXPECT_EQ(
        linesIn("<div type='book' osisID='Gen'><p><q marker='\u201C'><verse sID='a' osisID='Gen.1.1'/>one "
                "<verse eID='a'/></q></p><p><milestone type='cQuote' marker='\u201C'/>"
                "<verse sID='b' osisID='Gen.1.2'/>two<verse eID='b'/></p></div>"),
        "Gen 1:1 \u201Cone\u201D\nGen 1:2 \u201Ctwo\n");
}

TEST(OsisVariety, FigureDoesNotJoinWords)
{
    const SourceBible bible = read(verse("one<figure src='a.png'><caption>c</caption></figure>two"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 figure or index entry, first at Gen 1:1\n");
}

} // namespace
