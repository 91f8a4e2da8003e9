// In whatever element or marker a word is: it is in a verse, or the report has a line for it.

#include "json_reader.h"
#include "osis_reader.h"
#include "source_text.h"
#include "usfm_reader.h"
#include "word_fate.h"
#include "zefania_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Kedrin::ModTool;
using namespace word_fate;

std::string fateInUsfm(const std::string& content)
{
    CUsfmReader reader;
    reader.read("f.usfm", content);
    return fateIn(reader.finish("f.usfm"));
}

/// Every element of OSIS that may contain text, except those of the header.
constexpr const char* osisElements[] = {
    "a",         "abbr",        "actor",       "caption", "castGroup",  "castItem", "castList",  "catchWord",
    "cell",      "chapter",     "closer",      "date",    "divineName", "foreign",  "head",      "hi",
    "index",     "inscription", "item",        "l",       "label",      "lb",       "lg",        "list",
    "mentioned", "milestone",   "name",        "note",    "p",          "q",        "rdg",       "rdgGroup",
    "reference", "roleDesc",    "row",         "salute",  "seg",        "signed",   "speaker",   "speech",
    "table",     "title",       "transChange", "w",       "figure",     "role",     "titlePage", "other",
    "div",       "verse"};

constexpr const char* divisionTypes[] = {
    "acknowledgement", "afterword",    "annotant", "appendix",   "article",     "back",       "body",
    "bookGroup",       "chapter",      "colophon", "commentary", "concordance", "coverPage",  "dedication",
    "devotional",      "entry",        "front",    "gazetteer",  "glossary",    "imprimatur", "index",
    "introduction",    "majorSection", "map",      "outline",    "paragraph",   "part",       "preface",
    "section",         "subSection",   "summary",  "titlePage",  "x-other"};

constexpr const char* zefaniaElements[] = {
    "CAPTION", "PROLOG", "REMARK",  "NOTE",      "XREF", "MEDIA",   "DIV",  "STYLE", "GRAM",  "GR", "gr",
    "SUP",     "BR",     "APPINFO", "PARAGRAPH", "VERS", "caption", "note", "ITEM",  "other", "H",  "B"};

/// The word in a marker without and with its end marker.
std::string beginOf(const std::string& marker) { return '\\' + marker + ' ' + word; }
std::string wholeOf(const std::string& marker) { return beginOf(marker) + '\\' + marker + '*'; }

std::string fateInOsis(const std::string& before, const std::string& element)
{
    return fateIn(readOsis("f.xml", "<osis><osisText><div type='book' osisID='Gen'><chapter osisID='Gen.1'>" +
                                        before + element + "</div></osisText></osis>"));
}

TEST(NothingLost, InNoMarkerOfUsfm)
{
    for (const std::string marker : usfmMarkers) {
        const std::string marked = beginOf(marker);
        const std::string whole = wholeOf(marker);
        for (const std::string& text : {" one " + whole + " two", " one\n" + marked + "\n\\p two",
                                        " one\n\\v 2 " + marked, " one \\add " + whole + "\\add*"})
            EXPECT_NE(fateInUsfm("\\id GEN\n\\c 1\n\\p\n\\v 1" + text), "lost") << marker << ":\n" << text;
        EXPECT_NE(fateInUsfm("\\id GEN\n" + marked + "\n\\c 1\n\\p\n\\v 1 one"), "lost") << marker;
        EXPECT_NE(fateInUsfm("\\id GEN\n\\c 1\n\\p\n\\v 1 one\n\\c 2\n" + marked + "\n\\p\n\\v 1 two"),
                  "lost")
            << marker;
    }
}

std::string titled(const std::string& content) { return "<title type='psalm'>one " + content + "</title>"; }

TEST(NothingLost, InNoElementOfOsis)
{
    const std::string first = "<verse osisID='Gen.1.1'>one ";
    for (const std::string name : osisElements) {
        const std::string attributes = name == "verse" ? " osisID='Gen.1.2'" : "";
        const std::string element = elementOf(name, attributes);
        EXPECT_NE(fateInOsis(first + element + " two", "</verse></chapter>"), "lost") << name;
        EXPECT_NE(fateInOsis(element + first, "</verse></chapter>"), "lost") << name;
        EXPECT_NE(fateInOsis(first + "</verse>", element + "</chapter>"), "lost") << name;
        EXPECT_NE(fateInOsis(first + "</verse></chapter>", element), "lost") << name;
        EXPECT_NE(fateInOsis("<verse osisID='Gen.1.1' sID='s'/>one", element + "<verse eID='s'/></chapter>"),
                  "lost")
            << name;
        EXPECT_NE(fateInOsis(titled(element) + first, "</verse></chapter>"), "lost") << name;
    }
}

TEST(NothingLost, InNoDivisionOfOsis)
{
    const std::string first = "<verse osisID='Gen.1.1'>one ";
    for (const std::string type : divisionTypes) {
        const std::string division = elementOf("div", " type='" + type + "'");
        EXPECT_NE(fateInOsis(division + first, "</verse></chapter>"), "lost") << type;
        EXPECT_NE(fateInOsis(first + division, "</verse></chapter>"), "lost") << type;
        EXPECT_NE(fateInOsis(first + "</verse></chapter>", division), "lost") << type;
    }
}

TEST(NothingLost, InNoElementOfZefaniaXml)
{
    for (const std::string name : zefaniaElements) {
        const std::string attributes = name == "VERS" ? " vnumber='9'" : "";
        const std::string element = elementOf(name, attributes);
        for (const std::string& content :
             {"<VERS vnumber='1'>one " + element + " two</VERS>", element + "<VERS vnumber='1'>one</VERS>",
              "<VERS vnumber='1'>one</VERS>" + element})
            EXPECT_NE(fateIn(readZefania("f.xml", "<XMLBIBLE><BIBLEBOOK bnumber='1'><CHAPTER cnumber='1'>" +
                                                      content + "</CHAPTER></BIBLEBOOK></XMLBIBLE>")),
                      "lost")
                << content;
    }
}

TEST(NothingLost, TextOfEveryMarkerOfUsfmGoesWhereItsKindSays)
{
    const std::string verse = "\\id GEN\n\\c 1\n\\p\n\\v 1 one ";
    for (const std::string marker : usfmMarkers) {
        EXPECT_EQ(fateInUsfm(verse + wholeOf(marker) + " two"), expectedFate(markerFates, marker)) << marker;
        EXPECT_EQ(fateInUsfm(verse + "\n\\v 2 " + beginOf(marker)), expectedFate(markerFates, marker))
            << marker;
    }
}

TEST(NothingLost, TextOfEveryElementOfOsisGoesWhereItsKindSays)
{
    const std::vector<Omitted> omitted = {{"figure", " caption index figure "},
                                          {"title", " head speaker title "},
                                          {"note", " note "},
                                          {"outside", " chapter "}};
    for (const std::string name : osisElements) {
        const std::string element = elementOf(name, name == "verse" ? " osisID='Gen.1.2'" : "");
        EXPECT_EQ(fateInOsis("<verse osisID='Gen.1.1'>one " + element + " two", "</verse></chapter>"),
                  expectedFate(omitted, name))
            << name;
    }
}

TEST(NothingLost, TextOfEveryElementOfZefaniaXmlGoesWhereItsKindSays)
{
    const std::vector<Omitted> omitted = {{"title", " CAPTION PROLOG caption "},
                                          {"outside", " REMARK "},
                                          {"note", " NOTE XREF note "},
                                          {"figure", " MEDIA "}};
    for (const std::string name : zefaniaElements) {
        const std::string element = elementOf(name, name == "VERS" ? " vnumber='9'" : "");
        EXPECT_EQ(fateIn(readZefania("f.xml", "<XMLBIBLE><BIBLEBOOK bnumber='1'><CHAPTER cnumber='1'><VERS "
                                              "vnumber='1'>one " +
                                                  element + " two</VERS></CHAPTER></BIBLEBOOK></XMLBIBLE>")),
                  expectedFate(omitted, name))
            << name;
    }
}

/// Every tag that is known in texts without elements of their own, and some that are not.
constexpr const char* inlineElements[] = {
    "a",     "b",       "big", "blockquote", "div", "em",   "font",   "h1",    "h2",     "h3",  "h4",   "h5",
    "h6",    "i",       "li",  "ol",         "p",   "s",    "S",      "span",  "sub",    "sup", "td",   "tr",
    "u",     "ul",      "e",   "f",          "fn",  "h",    "J",      "m",     "mark",   "n",   "note", "t",
    "title", "heading", "w",   "wj",         "x",   "xref", "script", "style", "unknown"};

std::string fateInJson(const std::string& json)
{
    CJsonReader reader;
    reader.read("f.json", json);
    return fateIn(reader.finish("f.json"));
}

TEST(NothingLost, TextOfEveryTagInJsonGoesWhereItsKindSays)
{
    const std::vector<Omitted> omitted = {{"title", " h1 h2 h3 h4 h5 h6 h title heading "},
                                          {"note", " f fn n note x xref "},
                                          {"outside", " script style "},
                                          {"attribute", " m "}};
    for (const std::string element : inlineElements) {
        const std::string text =
            "one <" + element + ">" + word + "</" + element.substr(0, element.find(' ')) + "> two";
        EXPECT_EQ(fateInJson(R"([{"book":1,"chapter":1,"verse":1,"text":")" + text + "\"}]"),
                  expectedFate(omitted, element))
            << element;
    }
}

TEST(NothingLost, TextOfEveryClassInJsonGoesWhereItsKindSays)
{
    const std::vector<Omitted> omitted = {
        {"title", " heading sectionhead title "},
        {"note", " footnote footnotes note crossreference crossref "},
        {"text number",
         " chapternum versenum chapter-num verse-num chapter-number verse-number cnum vnum v-num "}};
    for (const std::string name :
         {"heading", "sectionhead", "title", "footnote", "footnotes", "note", "crossreference", "crossref",
          "chapternum", "versenum", "chapter-num", "verse-num", "chapter-number", "verse-number", "cnum",
          "vnum", "v-num", "other"})
        for (const std::string& written :
             {"class='" + name + "'", "id=a class='b " + name + "'", "CLASS=" + name})
            EXPECT_EQ(fateInJson(R"([{"book":1,"chapter":1,"verse":1,"text":"a<span )" + written + ">" +
                                 word + "</span>b\"}]"),
                      expectedFate(omitted, name))
                << written;
}

TEST(NothingLost, TextOfEveryKeyOfJsonGoesWhereItsKindSays)
{
    const std::vector<Omitted> omitted = {{"title", " heading headings subtitle "},
                                          {"note", " note notes footnotes comments crossReferences "},
                                          {"outside", " other audio content "},
                                          {"metadata", " name title bookName rights abbrev ref "}};
    for (const std::string key :
         {"heading", "headings", "subtitle", "note", "notes", "footnotes", "comments", "crossReferences",
          "other", "audio", "content", "name", "title", "rights", "abbrev", "ref"})
        for (const std::string& value :
             {'"' + word + '"', "[[\"" + word + "\"]]", "{\"a\":\"" + word + "\"}"})
            EXPECT_EQ(fateInJson("[{\"book\":1,\"chapter\":1,\"verse\":1,\"text\":\"a\",\"" + key +
                                 "\":" + value + "}]"),
                      expectedFate(omitted, key))
                << key;
}

} // namespace
