#include "ces_reader.h"

#include "ascii.h"
#include "book_ids.h"
#include "messages.h"
#include "xml_bible.h"

#include <array>
#include <utility>

namespace Kedrin::ModTool {

namespace {

/// The codes that differ from those of USFM.
constexpr std::array<std::pair<std::string_view, std::string_view>, 11> ownCodes{{{"SON", "Song"},
                                                                                  {"EZE", "Ezek"},
                                                                                  {"JOE", "Joel"},
                                                                                  {"NAH", "Nah"},
                                                                                  {"MAR", "Mark"},
                                                                                  {"JOH", "John"},
                                                                                  {"PHI", "Phil"},
                                                                                  {"JAM", "Jas"},
                                                                                  {"1JO", "1John"},
                                                                                  {"2JO", "2John"},
                                                                                  {"3JO", "3John"}}};

std::string osisOfCes(std::string_view code)
{
    const std::string capitals = upper(code);
    for (const auto& [own, osis] : ownCodes)
        if (own == capitals)
            return std::string(osis);
    return osisOfUsfm(capitals);
}

/// "1" of "b.MAR.1"; the whole if it has no dot.
std::string lastPart(const std::string& id) { return id.substr(id.rfind('.') + 1); }

class CCes final : public CXmlBible
{
public:
    CCes(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
        : CXmlBible(fileName, utf8, verses, {"cesDoc", "<div type=\"book\">"})
    {}

private:
    void start(const std::string& name) override
    {
        if (name == "div")
            startDivision();
        else if (name == "seg")
            startSegment();
        else if (name == "cesHeader")
            readHeader();
        else if (name == "head")
            leaveOut(ReaderRule::title);
        else if (name == "note")
            leaveOut(ReaderRule::note);
        else if (name == "p" || name == "l" || name == "lb" || name == "br")
            m_verses.addBreak();
    }

    void end(const std::string& name) override
    {
        if (m_verseDepth == m_xml.depth() || name == "div")
            endVerse();
        else if (name == "p" || name == "l")
            m_verses.addBreak();
    }

    void startDivision()
    {
        const std::string type = m_xml.attribute("type");
        const std::string part = lastPart(m_xml.attribute("id"));
        endVerse();
        if (type == "chapter")
            return beginChapter(part);
        if (type != "book")
            return;
        if (const std::string osis = osisOfCes(part); isKnownOsisId(osis) || isUsfmSideMatter(osis))
            beginBook(osis);
        else
            beginUnknownBook(
                part, message("%s is not a book code: write one in %s, such as GEN", inQuotes(part), "id"),
                m_xml.line());
    }

    /// A segment of a verse in another one is text of that verse.
    void startSegment()
    {
        const std::string type = m_xml.attribute("type");
        if (m_verses.inVerse() || (!type.empty() && type != "verse"))
            return;
        beginVerse(lastPart(m_xml.attribute("id")));
        m_verseDepth = m_xml.depth();
    }

    void endVerse()
    {
        m_verses.endVerse();
        m_verseDepth = -1;
    }

    void readHeader()
    {
        std::string text, title;
        bool inTitle = false;
        forEachInside(m_xml, [&](CXmlReader::Node node) {
            if (node != CXmlReader::Node::text) {
                inTitle = node == CXmlReader::Node::start && m_xml.name() == "h.title" && title.empty();
                return;
            }
            text += m_xml.text();
            title += inTitle ? m_xml.text() : "";
        });
        m_verses.leaveOut(ReaderRule::metadata, text);
        m_verses.info().fullTitle = trimmed(title);
    }

    int m_verseDepth = -1; ///< of the open verse's element; -1: none
};

} // namespace

SourceBible readCes(const std::string& fileName, std::string_view utf8)
{
    return readXmlBible<CCes>(fileName, utf8);
}

} // namespace Kedrin::ModTool
