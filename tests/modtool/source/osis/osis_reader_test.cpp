#include "osis_reader.h"

#include "errors.h"
#include "source_text.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;

namespace {

SourceBible read(const std::string& book)
{
    return readOsis("f.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<osis xmlns=\"http://www.bibletechnologies.net/2003/OSIS/namespace\">"
                             "<osisText osisIDWork=\"T\">" +
                                 book + "</osisText></osis>");
}

std::string linesIn(const std::string& book) { return linesOf(read(book)); }

std::string errorIn(const std::string& book)
{
    return messageOf<CBuildError>([&] { read(book); });
}

std::string verse(const std::string& content) { return "<verse osisID=\"Gen.1.1\">" + content + "</verse>"; }

} // namespace

TEST(OsisReader, ContainerVerses)
{
    EXPECT_EQ(linesIn("<div type='book' osisID='Gen'><chapter osisID='Gen.1'>"
                      "<verse osisID='Gen.1.1'>In the beginning</verse>\n"
                      "<verse osisID='Gen.1.2'>And the earth</verse></chapter></div>"),
              "Gen 1:1 In the beginning\nGen 1:2 And the earth\n");
}

TEST(OsisReader, VersesBetweenMilestonesCrossOtherElements)
{
    EXPECT_EQ(linesIn("<chapter sID='c' osisID='Gen.1'/><p><verse sID='a' osisID='Gen.1.1'/>One</p>"
                      "<p>two<verse eID='a'/><verse sID='b' osisID='Gen.1.2'/>three<verse eID='b'/></p>"
                      "<chapter eID='c'/>"),
              "Gen 1:1 One two\nGen 1:2 three\n");
}

TEST(OsisReader, MilestoneWithoutOsisIdIsNamedByItsStart)
{
    EXPECT_EQ(linesIn("<verse sID='Gen.1.1'/>One<verse eID='Gen.1.1'/>"), "Gen 1:1 One\n");
}

TEST(OsisReader, LexicalMarksAndAddedWordsArePlainText)
{
    EXPECT_EQ(linesIn(verse("<w lemma='strong:H1254' morph='x'>created</w> <transChange type='added'>the"
                            "</transChange> <divineName>Lord</divineName> <foreign>x</foreign>")),
              "Gen 1:1 created the Lord x\n");
}

TEST(OsisReader, NotesAndTitlesAreLeftOutAndCounted)
{
    const SourceBible bible = read("<title>Head</title>" + verse("one<note>a<note>b</note></note> two"
                                                                 "<title>Middle</title>three"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two three\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 note, first at Gen 1:1\n"
                                     "left out      2 titles, first at line 2\n");
}

TEST(OsisReader, WordsDoNotRunTogetherOverANote)
{
    EXPECT_EQ(
        linesIn(verse("one<note>a</note>two <note>b</note>three<note>c</note>, four (<note>d</note>five)")),
        "Gen 1:1 one two three, four (five)\n");
}

TEST(OsisReader, LinesOfPoetryAreSeparate)
{
    EXPECT_EQ(linesIn(verse("<lg><l>one</l><l>two</l></lg>three<lb/>four")), "Gen 1:1 one two three four\n");
}

TEST(OsisReader, WordsOfChristAreTextAndSignsOfQuotationsAreTaken)
{
    const SourceBible bible =
        read(verse("<q who='Jesus' marker=''>Go</q>, <q marker='\u201C'>come</q> "
                   "<q sID='a' marker='\u201E'/>up<q eID='a' marker='\u201C'/> <q>bare</q>"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 Go, \u201Ccome\u201D \u201Eup\u201C bare\n");
    EXPECT_EQ(bible.findings.text(), "unmarked      1 quotation tagged in the source, first at Gen 1:1\n");
}

TEST(OsisReader, CanonicalTitleStandsBeforeTheTextThatFollows)
{
    const SourceBible bible = read("<div type='book' osisID='Ps'><chapter osisID='Ps.3'>"
                                   "<title type='psalm'>A <w>psalm</w><note>n</note>.</title>"
                                   "<verse osisID='Ps.3.1'>Lord</verse>"
                                   "<verse osisID='Ps.3.2'><title canonical='true'>ALEPH</title> Many</verse>"
                                   "</chapter></div>");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 A psalm. Lord\nPs 3:2 ALEPH Many\n");
    EXPECT_EQ(bible.findings[ReaderRule::canonicalTitle].count, 2u);
}

TEST(OsisReader, CanonicalTitleAtTheEndOfABookStandsBehindTheLastVerse)
{
    EXPECT_EQ(linesIn("<div type='book' osisID='Hab'><verse osisID='Hab.3.19'>end</verse>"
                      "<title canonical='true'>To the chief singer</title></div>"
                      "<div type='book' osisID='Zeph'><verse osisID='Zeph.1.1'>word</verse></div>"),
              "Hab 3:19 end To the chief singer\nZeph 1:1 word\n");
}

TEST(OsisReader, ListsAndRangesHaveTheirTextAtTheFirst)
{
    const SourceBible bible =
        read("<verse osisID='Gen.1.1 Gen.1.2 Gen.1.3'>a</verse>"
             "<verse osisID='KJV:Gen.1.4-KJV:Gen.1.5'>b</verse>"
             "<verse osisID='Gen.1.6-8'>c</verse><verse osisID='Gen.1.31-Gen.2.2'>d</verse>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:4 b\nGen 1:6 c\nGen 1:31 d\n");
    EXPECT_EQ(bible.findings.text(),
              "joined        4 ranges of verses, with the text in the first, first at Gen 1:1\n");
}

TEST(OsisReader, PartsAndRepetitionsAreJoined)
{
    const SourceBible bible = read("<verse osisID='Gen.1.1!a'>a</verse><verse osisID='Gen.1.1!b'>b</verse>"
                                   "<verse osisID='Gen.1.2'>c</verse><verse osisID='Gen.1.2'>d</verse>"
                                   "<verse osisID='Gen.1.3'>e</verse><verse osisID='Gen.1.3'> e</verse>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c d\nGen 1:3 e\n");
    EXPECT_EQ(bible.findings.text(), "joined        2 parts of verses, first at Gen 1:1\n"
                                     "joined        1 verse given more than once, first at Gen 1:2\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:3\n");
}

TEST(OsisReader, VerseZeroStandsBeforeTheNextVerse)
{
    const SourceBible bible =
        read("<verse osisID='Ps.3.0'>A psalm.</verse><verse osisID='Ps.3.1'>Lord</verse>");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 A psalm. Lord\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse 0, put before the next verse, first at Ps 3:0\n");
}

TEST(OsisReader, TextOutsideTheVersesIsCounted)
{
    const SourceBible bible = read("<div type='introduction'><p>Of <b>it</b></p></div>\n<p>x" + verse("one") +
                                   " y<verse osisID='Gen.1.2'>two</verse></p>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one\nGen 1:2 two\n");
    EXPECT_EQ(bible.findings.text(), "left out      3 texts outside the verses, first at line 2\n");
}

TEST(OsisReader, OtherReadingsAreLeftOut)
{
    const SourceBible bible = read(verse("<seg type='x-variant' subType='x-1'>a</seg>"
                                         "<seg type='x-variant' subType='x-2'>b</seg>"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\n");
    EXPECT_EQ(bible.findings.text(), "left out      1 variant reading, first at Gen 1:1\n");
}

TEST(OsisReader, EntitiesOfXmlAndCharacterNumbersAreText)
{
    EXPECT_EQ(linesIn(verse("a &amp; b &lt; &#1041;&#x433; <![CDATA[<c>]]>")), "Gen 1:1 a & b < Бг <c>\n");
}

TEST(OsisReader, TakesTitlesAndCopyrightOfItsOwnWork)
{
    const SourceBible bible = read("<header><work osisWork='Other'><title>Other</title></work><work "
                                   "osisWork='T'><title>Whole title</title>"
                                   "<title type='x-short'>Short</title><title "
                                   "type='x-abbreviation'>Ab</title><description>About</description>"
                                   "<publisher>House</publisher><rights>Free</"
                                   "rights><refSystem>Bible.Synodal</refSystem></work></header>" +
                                   verse("one"));
    EXPECT_EQ(bible.info.fullTitle, "Whole title");
    EXPECT_EQ(bible.info.shortTitle, "Short");
    EXPECT_EQ(bible.info.abbreviatedTitle, "Ab");
    EXPECT_EQ(bible.info.copyright, (std::vector<std::string>{"About", "Publisher: House", "Rights: Free"}));
    EXPECT_EQ(bible.versification, "Synodal");
}

TEST(OsisReader, TakesTheTitlesOfBooks)
{
    const SourceBible bible =
        read("<div type='book' osisID='Gen'><title type='main' short='Ge'>Genesis</title>" + verse("one") +
             "<title>no title of the book</title></div>");
    ASSERT_EQ(bible.bookTitles.size(), 1u);
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Genesis");
    EXPECT_EQ(bible.bookTitles[0].shortTitle, "Ge");
}

TEST(OsisReader, GreekEstherIsEstherWhereThereIsNoOther)
{
    EXPECT_EQ(linesIn("<verse osisID='EsthGr.1.1'>a</verse>"), "Esth 1:1 a\n");
    EXPECT_EQ(linesIn("<verse osisID='EsthGr.1.1'>a</verse><verse osisID='Esth.1.1'>b</verse>"),
              "EsthGr 1:1 a\nEsth 1:1 b\n");
}

TEST(OsisReader, VerseWithoutAReferenceIsJoinedToTheOneBefore)
{
    for (const std::string id :
         {"", "Gen", "Gen.1", "Gen.1.4294967297", "Gen.65535.1", "../../x", "Gen.1.x", "1"}) {
        const SourceBible bible =
            read("<verse osisID='Gen.1.3'>a</verse><verse osisID='" + id + "'>b</verse>");
        EXPECT_EQ(linesOf(bible), "Gen 1:3 a b\n") << id;
        EXPECT_EQ(bible.findings.text(),
                  "joined        1 verse without a number, with the verse before it, first at Gen 1:3\n")
            << id;
        EXPECT_EQ(errorIn("<verse osisID='" + id + "'>a</verse>"),
                  "f.xml:2: \"" + id + "\" is not a verse reference, such as Gen.1.1");
    }
    EXPECT_EQ(linesOf(read("<div type='book' osisID='Gen'><chapter osisID='Gen.2'><verse osisID='x'>a</verse>"
                           "<verse osisID='Gen.2.1'>b</verse></chapter></div>")),
              "Gen 2:1 a b\n");
    EXPECT_EQ(linesOf(read("<verse osisID='Gen.1.1 x'>a</verse>")), "Gen 1:1 a\n");
}

TEST(OsisReader, BookOfOneChapterMayOmitIt)
{
    EXPECT_EQ(linesOf(read("<verse osisID='Jude.5'>a</verse><verse osisID='KJV:Obad.6-8'>b</verse>")),
              "Jude 1:5 a\nObad 1:6 b\n");
}

TEST(OsisReader, ChapterAfterTheLastNumberStaysInRange)
{
    EXPECT_EQ(linesOf(read("<div type='book' osisID='Gen'><chapter osisID='Gen.65534'/><chapter/><chapter/>"
                           "<verse>a</verse></div>")),
              "Gen 65534:1 a\n");
}

TEST(OsisReader, ChapterZeroStandsBeforeTheFirstVerse)
{
    EXPECT_EQ(linesOf(read("<verse osisID='Gen.0.1'>a</verse><verse osisID='Gen.1.1'>b</verse>")),
              "Gen 1:1 a b\n");
}

TEST(OsisReader, RefusesMoreThanAThousandBooks)
{
    std::string books;
    for (int i = 0; i <= 1000; ++i)
        books += "<verse osisID='B" + std::to_string(i) + ".1.1'>a</verse>";
    EXPECT_EQ(errorIn(books), "the source has more than 1000 books");
}

TEST(OsisReader, RefusesATextWithoutVersesAndAnotherRoot)
{
    EXPECT_EQ(errorIn("<p>a</p>"), "f.xml: contains no verses");
    EXPECT_EQ(messageOf<CBuildError>([] { readOsis("f.xml", "<html/>"); }),
              "f.xml:1: the root element is \"html\", not osis");
}

TEST(OsisReader, ExampleOfTheFormatPage)
{
    const SourceBible bible = readOsis(
        "f.xml",
        R"(<osis><osisText osisIDWork="T"><header><work osisWork="T"><title>Тест</title></work></header>
<div type="book" osisID="Ps"><chapter osisID="Ps.3"><title type="psalm">Псалом на Давида.</title>
<lg><l><verse sID="a" osisID="Ps.3.1"/>Господи,<note>или: Боже</note> колко</l>
<l>се умножиха!<verse eID="a"/></l></lg></chapter></div></osisText></osis>
)");
    EXPECT_EQ(linesOf(bible), "Ps 3:1 Псалом на Давида. Господи, колко се умножиха!\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 psalm title, put before its text, first at Ps 3:1\n"
                                     "left out      1 note, first at Ps 3:1\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
}
