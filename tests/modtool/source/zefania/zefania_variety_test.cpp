// Zefania XML as written by different programs (doc/formats/zefania.md).

#include "read_source.h"
#include "source_text.h"
#include "temp_folder.h"
#include "zefania_reader.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::TempFolder;

SourceBible chapter(const std::string& verses)
{
    return readZefania("f.xml", "<XMLBIBLE biblename='N'><BIBLEBOOK bnumber='1'><CHAPTER cnumber='1'>" +
                                    verses + "</CHAPTER></BIBLEBOOK></XMLBIBLE>");
}

SourceBible read(const std::string& content)
{
    return readZefania("f.xml", "<XMLBIBLE>" + content + "</XMLBIBLE>");
}

TEST(ZefaniaVariety, SchemaDocumentTypeAndStyleSheetAreNotLoaded)
{
    const TempFolder folder;
    const std::string file = folder.write(
        "a.xml", "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\r\n<!--Visit the site-->\r\n"
                 "<?xml-stylesheet href='x.xsl' type='text/xsl'?>\r\n"
                 "<!DOCTYPE XMLBIBLE SYSTEM 'none.dtd'>\r\n"
                 "<XMLBIBLE xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                 "xsi:noNamespaceSchemaLocation='zef2005.xsd' version='2.0.1.18' status='v' biblename='N' "
                 "type='x-bible' revision='0'>\r\n<INFORMATION/>\r\n<BIBLEBOOK bnumber='40'>\r\n"
                 "<CHAPTER cnumber='1'>\r\n<VERS vnumber='1'>a</VERS>\r\n</CHAPTER></BIBLEBOOK></XMLBIBLE>");
    const SourceBible bible = readSourceFile(file, {});
    EXPECT_EQ(linesOf(bible), "Matt 1:1 a\n");
    EXPECT_EQ(bible.info.fullTitle, "N");
    EXPECT_EQ(bible.findings.text(), "");
}

TEST(ZefaniaVariety, NestedMarksArePlainText)
{
    EXPECT_EQ(linesOf(chapter("<VERS vnumber='1'><STYLE css='color:red'>In <gr str='1' rmac='N'>the "
                              "<STYLE fs='italic'>be</STYLE></gr>gin</STYLE>ning<SUP art='x-1'>2</SUP>"
                              "<BR art='x-p'/>end</VERS>")),
              "Gen 1:1 In the beginning2 end\n");
}

TEST(ZefaniaVariety, MarkersOfUsfmGoAndAreCounted)
{
    const SourceBible bible = chapter("<VERS vnumber='1'>the \\nd LORD\\nd* said</VERS>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 the LORD said\n");
    EXPECT_EQ(bible.findings.text(), "kept          2 texts of unknown markers, first at Gen 1:1\n");
}

TEST(ZefaniaVariety, NoteInsideAWordDoesNotDivideIt)
{
    EXPECT_EQ(
        linesOf(chapter("<VERS vnumber='1'><gr str='1'>begin<NOTE>n</NOTE>ning</gr> of<NOTE>n</NOTE>time"
                        "</VERS>")),
        "Gen 1:1 beginning of time\n");
}

TEST(ZefaniaVariety, HeadingsAnywhereAreLeftOut)
{
    const SourceBible bible =
        chapter("<PROLOG vref='1'>A psalm</PROLOG><CAPTION vref='1' type='x-h1'>H<gr str='1'>"
                "h</gr></CAPTION><VERS vnumber='1'>one<CAPTION vref='1'>m</CAPTION>two</VERS>"
                "<REMARK vref='1'>r</REMARK>loose<MEDIA>m</MEDIA>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one two\n");
    EXPECT_EQ(bible.findings.text(), "left out      3 titles, first at line 1\n"
                                     "left out      1 figure or index entry, first at line 1\n"
                                     "left out      2 texts outside the verses, first at line 1\n");
}

TEST(ZefaniaVariety, VersesGivenTwiceAreJoined)
{
    const SourceBible bible = chapter("<VERS vnumber='1'>a</VERS><VERS vnumber='1'>b</VERS>"
                                      "<VERS vnumber='2'>c</VERS><VERS vnumber='2'>c</VERS>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), "joined        1 verse given more than once, first at Gen 1:1\n"
                                     "left out      1 verse repeated word for word, first at Gen 1:2\n");
}

TEST(ZefaniaVariety, NamesInCapitalLettersAreTheSame)
{
    const SourceBible bible = readZefania(
        "f.xml",
        "<XMLBIBLE BIBLENAME='N'><BIBLEBOOK BNUMBER='2' BNAME='Exodus' BSNAME='Ex'><CHAPTER CNUMBER='3'>"
        "<VERS VNUMBER='4'>a<Br/>b</VERS></CHAPTER></BIBLEBOOK></XMLBIBLE>");
    EXPECT_EQ(linesOf(bible), "Exod 3:4 a b\n");
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Exodus");
    EXPECT_EQ(bible.bookTitles[0].shortTitle, "Ex");
    EXPECT_EQ(bible.info.fullTitle, "N");
}

TEST(ZefaniaVariety, VersesBeforeTheFirstChapterAreOfIt)
{
    EXPECT_EQ(linesOf(read("<BIBLEBOOK bnumber='1'><CHAPTER cnumber='2'><VERS vnumber='1'>a</VERS></CHAPTER>"
                           "</BIBLEBOOK><BIBLEBOOK bnumber='2'><VERS vnumber='1'>b</VERS></BIBLEBOOK>")),
              "Gen 2:1 a\nExod 1:1 b\n");
}

TEST(ZefaniaVariety, InformationGivesTitlesAndCopyright)
{
    const SourceBible bible = readZefania(
        "f.xml",
        "<XMLBIBLE><INFORMATION><title>T</title><creator>c</creator><subject/><description>D</description>"
        "<publisher>P</publisher><contributors/><date>2009</date><type>Bible</type><format>F</format>"
        "<identifier>I</identifier><source>s</source><language>BUL</language><coverage>v</coverage>"
        "<rights>R</rights></INFORMATION><BIBLEBOOK bnumber='1'><CHAPTER cnumber='1'><VERS vnumber='1'>a"
        "</VERS></CHAPTER></BIBLEBOOK></XMLBIBLE>");
    EXPECT_EQ(bible.info.fullTitle, "T");
    EXPECT_EQ(bible.info.shortTitle, "I");
    EXPECT_EQ(bible.info.copyright, (std::vector<std::string>{"D", "Publisher: P", "Rights: R"}));
    EXPECT_EQ(bible.findings.text(), "");
}

} // namespace
