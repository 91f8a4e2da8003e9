#include "beblia_reader.h"

#include "ascii.h"
#include "book_finder.h"
#include "book_ids.h"
#include "book_names.h"
#include "messages.h"
#include "verse_number.h"
#include "xml_bible.h"

namespace Kedrin::ModTool {

namespace {

class CBeblia final : public CXmlBible
{
public:
    CBeblia(const std::string& fileName, std::string_view utf8, CVerseCollector& verses)
        : CXmlBible(fileName, utf8, verses, {"bible", "<book>"})
    {}

private:
    void readRoot() override
    {
        SourceInfo& info = m_verses.info();
        info.fullTitle = m_xml.attribute("translation");
        if (const std::string status = m_xml.attribute("status"); !isBlank(status))
            info.copyright.push_back("Rights: " + status);
        if (const std::string link = m_xml.attribute("link"); !isBlank(link))
            info.copyright.push_back("Source: " + link);
    }

    void start(const std::string& name) override
    {
        if (name == "book")
            startBook();
        else if (name == "chapter")
            beginChapter(m_xml.attribute("number"));
        else if (name == "verse")
            beginVerse(m_xml.attribute("number"));
        else if (name == "note")
            leaveOut(ReaderRule::note);
        else if (name == "title")
            leaveOut(ReaderRule::title);
        else if (name == "br")
            m_verses.addBreak();
    }

    void end(const std::string& name) override
    {
        if (name == "verse")
            m_verses.endVerse();
    }

    void startBook()
    {
        const std::string number = m_xml.attribute("number");
        const std::string name = m_xml.attribute("name");
        const auto value = parseVerseNumber(number);
        const bool isNumbered = value && value->first != 0;
        const std::string named =
            isNumbered && value->first <= protestantBooksCount ? "" : osisOfShortName(name);
        if (!named.empty()) {
            beginBook(named);
            m_verses.found(ReaderRule::bookByName, m_xml.line());
        } else if (isNumbered) {
            const std::string osis = osisOfProtestant(value->first);
            const std::string known = value->first <= protestantBooksCount ? bookFinder().find(name) : "";
            if (contradict(osis, known))
                m_xml.fail(message("the book is %s by its number, but %s by its name: correct one of them",
                                   osis, known));
            beginBook(osis);
        } else {
            beginUnknownBook(name.empty() ? number : name,
                             message("%s is not a book number: write one in number, such as 1 for Genesis",
                                     inQuotes(number)),
                             m_xml.line());
        }
        m_verses.titles() = {name, name, ""};
    }
};

} // namespace

SourceBible readBeblia(const std::string& fileName, std::string_view utf8)
{
    return readXmlBible<CBeblia>(fileName, utf8);
}

} // namespace Kedrin::ModTool
