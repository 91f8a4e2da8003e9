#include "opensong_reader.h"

#include "book_ids.h"
#include "messages.h"
#include "verse_number.h"
#include "xml_bible.h"

namespace Kedrin::ModTool {

namespace {

/// The OSIS id of a book by its name or number; "" for none.
std::string osisOf(const std::string& name)
{
    const auto number = parseVerseNumber(name);
    const bool isNumber = number && !number->isPart && number->first == number->last;
    if (isNumber && number->first >= 1 && number->first <= protestantBooksCount)
        return osisOfProtestant(number->first);
    return osisOfBook(name);
}

class COpenSong final : public CXmlBible
{
public:
    COpenSong(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
        : CXmlBible(fileName, utf8, verses, {"bible", "<b>"})
    {}

private:
    void start(const std::string& name) override
    {
        if (name == "v")
            beginVerse(m_xml.attribute("n"), m_xml.attribute("t"));
        else if (name == "note")
            leaveOut(ReaderRule::note);
        else if (name == "title")
            leaveOut(ReaderRule::title);
        else if (name == "br")
            m_verses.addBreak();
        else if (name == "b" && isBook())
            startBook();
        else if (name == "c" && !m_verses.inVerse())
            beginChapter(m_xml.attribute("n"));
    }

    void end(const std::string& name) override
    {
        if (name == "v")
            m_verses.endVerse();
    }

    /// Elsewhere a b marks bold letters.
    bool isBook() const
    {
        return !m_verses.inVerse() && (m_xml.depth() == 1 || !m_xml.attribute("n").empty());
    }

    void startBook()
    {
        const std::string name = m_xml.attribute("n");
        const std::string osis = osisOf(name);
        if (osis.empty())
            beginUnknownBook(
                name,
                message("%s is not a known book name: write an English or Bulgarian one in n, such as "
                        "Genesis",
                        inQuotes(name)),
                m_xml.line());
        else
            beginBook(osis);
        m_verses.titles() = {name, name, ""};
    }
};

} // namespace

SourceBible readOpenSong(const std::string& fileName, std::string_view utf8)
{
    return readXmlBible<COpenSong>(fileName, utf8);
}

} // namespace Kedrin::ModTool
