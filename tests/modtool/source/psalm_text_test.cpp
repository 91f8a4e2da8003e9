// Text between the beginning of a psalm and its first verse that is not marked as a title is in the report.

#include "beblia_reader.h"
#include "opensong_reader.h"
#include "osis_reader.h"
#include "read_source.h"
#include "temp_folder.h"
#include "usfm_reader.h"
#include "usfx_reader.h"
#include "usx_reader.h"
#include "zefania_reader.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;

std::string findingsOfUsfm(const std::string& text)
{
    CUsfmReader reader;
    reader.read("f.usfm", text);
    return reader.finish("f.usfm").findings.text();
}

} // namespace

TEST(PsalmTexts, OfUsfmAreListedWithTheirPosition)
{
    EXPECT_EQ(findingsOfUsfm("\\id PSA\n\\c 3\n\\p Псалом на\n  Давида.\n\\q1\n\\v 1 a\n\\c 4\n\\p "
                             "Asaph\n\\v 1 b\n\\c 5\n\\v 1 c\n"),
              "left out      2 texts before a psalm's first verse, perhaps its title, first at line 3\n"
              "              Ps 3, line 3: \"Псалом на Давида.\"\n"
              "              Ps 4, line 8: \"Asaph\"\n");
}

TEST(PsalmTexts, OfAFolderAreNamedWithTheirFile)
{
    const test_support::TempFolder folder;
    folder.write("01.usfm", "\\id GEN\n\\p Intro\n\\c 1\n\\v 1 a\n");
    folder.write("19-PSA.usfm", "\\id PSA\n\\c 150\n\\p Praise\n\\v 1 a\n");
    EXPECT_EQ(readSourceFile(folder.path().string(), {}).findings.text(),
              "left out      1 text before a psalm's first verse, perhaps its title, first at line 3 "
              "of 19-PSA.usfm\n"
              "              Ps 150, line 3 of 19-PSA.usfm: \"Praise\"\n"
              "left out      1 text outside the verses, first at line 2 of 01.usfm\n");
}

TEST(PsalmTexts, OfXmlAreListedWithTheirPosition)
{
    EXPECT_EQ(
        readOsis(
            "f.xml",
            "<osis><osisText><div type='book' osisID='Ps'><chapter osisID='Ps.3'><p>A <hi>psalm</hi>.</p>"
            "<verse osisID='Ps.3.1'>a</verse></chapter></div></osisText></osis>")
            .findings.text(),
        "left out      1 text before a psalm's first verse, perhaps its title, first at line 1\n"
        "              Ps 3, line 1: \"A psalm.\"\n");
    EXPECT_EQ(
        readZefania(
            "f.xml",
            "<XMLBIBLE><BIBLEBOOK bnumber='19'><CHAPTER cnumber='3'>\nA psalm.\n<VERS vnumber='1'>a</VERS>"
            "</CHAPTER></BIBLEBOOK></XMLBIBLE>")
            .findings.text(),
        "left out      1 text before a psalm's first verse, perhaps its title, first at line 2\n"
        "              Ps 3, line 2: \"A psalm.\"\n");
}

TEST(PsalmTexts, OfBooksInXmlAreListedWithTheirPosition)
{
    const std::string expected =
        "left out      1 text before a psalm's first verse, perhaps its title, first at line 2\n"
        "              Ps 3, line 2: \"A psalm.\"\n";
    EXPECT_EQ(readBeblia("f.xml", "<bible><book number='19'>\n<chapter number='3'>A psalm.<verse number='1'>a"
                                  "</verse></chapter></book></bible>")
                  .findings.text(),
              expected);
    EXPECT_EQ(readOpenSong("f", "<bible><b n='Psalms'>\n<c n='3'>A psalm.<v n='1'>a</v></c></b></bible>")
                  .findings.text(),
              expected);
    CUsxReader usx;
    usx.read("f",
             "<usx><book code='PSA'/>\n<chapter number='3'/><para style='p'>A <char style='nd'>psalm</char>."
             "</para><para style='q'><verse number='1'/>a</para></usx>");
    EXPECT_EQ(usx.finish("f").findings.text(), expected);
    EXPECT_EQ(
        readUsfx("f", "<usfx><book id='PSA'>\n<c id='3'/><p>A <nd>psalm</nd>.</p><v id='1'/>a</book></usfx>")
            .findings.text(),
        expected);
}

TEST(PsalmTexts, AreNoneInOtherBooksBehindAVerseOrWhereTheSourceSaysWhatTheyAre)
{
    EXPECT_EQ(findingsOfUsfm("\\id PSA\n\\ip About\n\\p Book\n\\c 3\n\\s Head\n\\d Title\n\\cd "
                             "About\n\\p\n\\v 1 a\n\\esb\n\\p Side\n\\esbe\n"
                             "\\id HAB\n\\c 3\n\\p Prayer\n\\v 1 a\n")
                  .find("psalm's first verse"),
              std::string::npos);
}

TEST(PsalmTexts, AreShownShort)
{
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += "words ";
    const std::string findings = findingsOfUsfm("\\id PSA\n\\c 1\n\\p " + text + "\n\\v 1 a\n");
    EXPECT_NE(findings.find(": \"" + text.substr(0, 120) + "...\"\n"), std::string::npos) << findings;
}
