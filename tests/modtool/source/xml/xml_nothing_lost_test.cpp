// In whatever element of a format a word is: it is in a verse, or the report has a line for it.

#include "beblia_reader.h"
#include "ces_reader.h"
#include "opensong_reader.h"
#include "usfx_reader.h"
#include "usx_reader.h"
#include "word_fate.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::ModTool;
using namespace word_fate;

/// A format with nested books, chapters and verses.
struct Format
{
    SourceBible (*read)(const std::string& fileName, std::string_view utf8);
    std::string begin; ///< up to the content of a chapter
    std::string verse; ///< the begin tag of its first verse
    std::string verseEnd;
    std::string end;

    std::string fateOf(const std::string& content) const
    {
        return fateIn(read("f.xml", begin + content + end));
    }
};

/// An element may be in a verse, before it and after it, and in another element.
void expectNotLost(const Format& format, const std::string& name)
{
    const std::string element = elementOf(name, "");
    const std::string one = format.verse + "one" + format.verseEnd;
    for (const std::string& content :
         {format.verse + "one " + element + " two" + format.verseEnd, element + one, one + element,
          format.verse + "one <any>" + element + "</any>" + format.verseEnd})
        EXPECT_NE(format.fateOf(content), "lost") << content;
}

void expectFates(const Format& format, const std::vector<std::string>& names,
                 const std::vector<Omitted>& omitted)
{
    for (const std::string& name : names) {
        expectNotLost(format, name);
        EXPECT_EQ(format.fateOf(format.verse + "one " + elementOf(name, "") + " two" + format.verseEnd),
                  expectedFate(omitted, name))
            << name;
    }
}

TEST(NothingLost, InNoElementOfBeblia)
{
    const Format beblia{readBeblia, "<bible><testament><book number='1'><chapter number='1'>",
                        "<verse number='1'>", "</verse>", "</chapter></book></testament></bible>"};
    expectFates(beblia, {"note", "title", "br", "testament", "chapter", "verse", "i", "b", "any"},
                {{"note", " note "}, {"title", " title "}, {"outside", " chapter "}});
}

TEST(NothingLost, InNoElementOfCes)
{
    const Format ces{readCes, "<cesDoc><text><div id='b.GEN' type='book'><div id='b.GEN.1' type='chapter'>",
                     "<seg id='b.GEN.1.1' type='verse'>", "</seg>", "</div></div></text></cesDoc>"};
    expectFates(ces, {"note", "head", "lb", "br", "p", "l", "seg", "w", "any", "div", "cesHeader"},
                {{"note", " note "}, {"title", " head "}, {"outside", " div "}, {"metadata", " cesHeader "}});
}

TEST(NothingLost, InNoElementOfOpenSong)
{
    const Format opensong{readOpenSong, "<bible><b n='Genesis'><c n='1'>", "<v n='1'>", "</v>",
                          "</c></b></bible>"};
    expectFates(opensong, {"note", "title", "br", "c", "v", "i", "b", "any"},
                {{"note", " note "}, {"title", " title "}});
}

SourceBible readUsx(const std::string& fileName, std::string_view utf8)
{
    CUsxReader reader;
    reader.read(fileName, utf8);
    return reader.finish(fileName);
}

TEST(NothingLost, InNoElementAndStyleOfUsx)
{
    const Format usx{readUsx, "<usx><book code='GEN' style='id'/><chapter number='1'/><para style='p'>",
                     "<verse number='1' sid='a'/>", "<verse eid='a'/>", "</para></usx>"};
    expectFates(usx, {"note", "figure", "sidebar", "periph", "ref", "ms", "optbreak", "table", "row", "any"},
                {{"note", " note "}, {"figure", " figure "}, {"outside", " sidebar periph "}});
    for (const std::string marker : usfmMarkers)
        for (const std::string name : {"para", "char", "cell"}) {
            const std::string element = elementOf(name, " style='" + marker + "'");
            EXPECT_EQ(usx.fateOf(usx.verse + "one " + element + " two" + usx.verseEnd),
                      expectedFate(markerFates, marker))
                << element;
            for (const std::string& content :
                 {element + usx.verse + "one", usx.verse + "one" + usx.verseEnd + element,
                  "<para style='d'>" + element + "</para>" + usx.verse + "one"})
                EXPECT_NE(usx.fateOf(content), "lost") << content;
        }
}

TEST(NothingLost, InNoElementOfUsfx)
{
    const Format usfx{readUsfx, "<usfx><book id='GEN'><c id='1'/><p>", "<v id='1'/>", "<ve/>",
                      "</p></book></usfx>"};
    std::vector<std::string> names(std::begin(usfmMarkers), std::end(usfmMarkers));
    for (const char* name : {"ref", "milestone", "quoteStart", "optionalLineBreak", "table", "any"})
        names.push_back(name);
    expectFates(usfx, names, markerFates);
}

} // namespace
