#include "usfx_reader.h"

#include "usfm_elements.h"

namespace Kedrin::ModTool {

namespace {

class CUsfx final : public CUsfmElements
{
public:
    CUsfx(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
        : CUsfmElements(fileName, utf8, verses, {"usfx", "<book>"})
    {}

private:
    bool beginsVerse(const std::string& name) const override { return name == "v"; }

    void start(const std::string& name) override
    {
        if (name == "v")
            beginVerse(verseNumber());
        else if (name == "ve" || name == "ce")
            m_verses.endVerse();
        else if (name == "c")
            beginChapter(m_xml.attribute("id"));
        else if (name == "book")
            beginBookOf(m_xml.attribute("id"), "", "id", m_xml.line());
        else if (name == "id" || name == "languageCode")
            m_verses.leaveOut(ReaderRule::metadata, elementText(m_xml));
        else if (name == "periph")
            leaveOut(ReaderRule::outside);
        else if (name == "table" || name == "optionalLineBreak")
            m_verses.addBreak();
        else if (!isText(name))
            startMarker(markerOf(name), name == "p");
    }

    void end(const std::string& name) override
    {
        CUsfmElements::end(name);
        if (name == "book")
            m_verses.endVerse();
    }

    /// Elements that are not USFM markers; their text, if any, is verse text.
    static bool isText(const std::string& name)
    {
        return name == "ref" || name == "milestone" || name == "quoteStart" || name == "quoteRemind" ||
               name == "quoteEnd";
    }

    /// The number, or the last part of a reference such as GEN.1.1.
    std::string verseNumber() const
    {
        std::string number = m_xml.attribute("id");
        if (!number.empty())
            return number;
        const std::string reference = m_xml.attribute("bcv");
        return reference.substr(reference.rfind('.') + 1);
    }

    /// The marker of an element: its name, or what its attributes state.
    std::string markerOf(const std::string& name) const
    {
        std::string marker = m_xml.attribute("sfm");
        if ((name == "p" || name == "cs") && !marker.empty())
            return marker;
        return name == "toc" ? name + m_xml.attribute("level") : name;
    }
};

} // namespace

SourceBible readUsfx(const std::string& fileName, std::string_view utf8)
{
    return readXmlBible<CUsfx>(fileName, utf8);
}

} // namespace Kedrin::ModTool
