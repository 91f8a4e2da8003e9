#include "zefania_reader.h"

#include "ascii.h"
#include "book_finder.h"
#include "book_ids.h"
#include "book_names.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "verse_collector.h"
#include "xml_letters.h"
#include "xml_reader.h"

#include <algorithm>
#include <optional>

namespace Kedrin::ModTool {

namespace {

class CZefaniaReader
{
public:
    CZefaniaReader(const std::string& fileName, std::string_view utf8) : m_utf8(utf8), m_xml(fileName, utf8)
    {}

    SourceBible read()
    {
        if (m_xml.next() != CXmlReader::Node::start || lower(m_xml.name()) != "xmlbible")
            m_xml.fail(message("the root element is %s, not XMLBIBLE", inQuotes(m_xml.name())));
        m_verses.info().fullTitle = attribute("biblename");
        for (auto node = m_xml.next(); node != CXmlReader::Node::none; node = m_xml.next()) {
            if (node == CXmlReader::Node::text)
                m_verses.addText(m_xml.text(), m_xml.line());
            else if (node == CXmlReader::Node::start)
                start(lower(m_xml.name()));
            else
                end(lower(m_xml.name()));
        }
        SourceBible bible = m_verses.finish(m_xml.fileName());
        bible.letters = proveXmlLetters(m_xml.fileName(), m_utf8, m_verses.takeLetters());
        return bible;
    }

private:
    void end(const std::string& name)
    {
        if (name == "vers")
            m_verses.endVerse();
        else if (name == "div")
            m_verses.addBreak();
        else if (isWord(name))
            m_verses.endWord();
    }

    static bool isWord(const std::string& name) { return name == "gr" || name == "gram"; }

    void start(const std::string& name)
    {
        if (name == "biblebook")
            startBook();
        else if (name == "chapter")
            startChapter();
        else if (name == "vers")
            startVerse();
        else if (name == "information")
            readInformation();
        else if (name == "br" || name == "div")
            m_verses.addBreak();
        else if (name == "note" || name == "xref")
            skip(ReaderRule::note);
        else if (name == "caption" || name == "prolog")
            skip(ReaderRule::title);
        else if (name == "remark")
            skip(ReaderRule::outside);
        else if (name == "media")
            skip(ReaderRule::figure);
        else if (isWord(name) && !m_xml.isEmpty())
            m_verses.beginWord();
    }

    /// An attribute, whose name may be in lower or upper case.
    std::string attribute(std::string_view name) const
    {
        const std::string value = m_xml.attribute(name);
        return value.empty() ? m_xml.attribute(upper(name)) : value;
    }

    void startBook()
    {
        const std::string name = attribute("bname");
        const std::string brief = attribute("bsname");
        beginBook(name, brief);
        m_verses.beginChapter();
        m_chapter.reset();
        m_verses.titles() = {name, brief, brief};
    }

    /// By the book's number or, if that is not a number, by one of its names.
    void beginBook(const std::string& name, const std::string& brief)
    {
        const std::string number = attribute("bnumber");
        if (const auto value = parseVerseNumber(number); value && value->first != 0)
            return beginNumberedBook(value->first, name);
        std::string osis;
        for (const std::string& text : {name, brief, number})
            if (osis.empty())
                osis = osisOfShortName(text);
        if (osis.empty()) {
            const std::string complaint =
                message("%s is not a book number, and %s is not a known book name: write the "
                        "number in bnumber, such as 1 for Genesis",
                        inQuotes(number), inQuotes(name));
            return m_verses.beginUnknownBook(name.empty() ? number : name,
                                             atLine(m_xml.fileName(), m_xml.line(), complaint));
        }
        m_verses.found(ReaderRule::bookByName, m_xml.line());
        m_verses.beginBook(osis);
    }

    /// By the number. Above 66 numbers differ from file to file, and a known name decides.
    void beginNumberedBook(unsigned int number, const std::string& name)
    {
        const std::string byNumber = osisOfZefania(number);
        const std::string byName = bookFinder().find(name);
        const bool isAddition = byNumber == "Add" + byName; // to Daniel or to Esther
        if (isAddition || !contradict(byNumber, byName))
            return m_verses.beginBook(byNumber);
        if (number <= protestantBooksCount)
            m_xml.fail(message("the book is %s by its number, but %s by its name: correct one of them",
                               byNumber, byName));
        m_verses.found(ReaderRule::bookByName, m_xml.line());
        m_verses.beginBook(byName);
    }

    void startChapter()
    {
        const auto number = parseVerseNumber(attribute("cnumber"));
        m_chapter = number ? number->first : std::min(m_chapter.value_or(0) + 1, maxSourceNumber);
        m_verses.beginChapter(*m_chapter);
        if (!number)
            m_verses.found(ReaderRule::chapterWithoutNumber, m_xml.line());
    }

    void startVerse()
    {
        if (!m_verses.inBook())
            m_xml.fail(tr("a verse before any BIBLEBOOK"));
        // the element may be missing in a book of one chapter
        const unsigned int chapter = m_chapter.value_or(1);
        auto verse = parseVerseNumber(attribute("vnumber"));
        if (!verse) {
            m_verses.beginVerseWithoutNumber(std::max(chapter, 1u), m_xml.line());
        } else {
            if (const auto last = parseVerseNumber(attribute("enumber")); last && last->last > verse->last)
                verse->last = last->last;
            m_verses.beginVerse(chapter, *verse, m_xml.line());
        }
        if (m_xml.isEmpty())
            m_verses.endVerse();
    }

    /// Reads from the start of INFORMATION to its end.
    void readInformation()
    {
        const int depth = m_xml.depth();
        SourceInfo& info = m_verses.info();
        for (auto node = m_xml.isEmpty() ? CXmlReader::Node::none : m_xml.next();
             node != CXmlReader::Node::none && m_xml.depth() > depth; node = m_xml.next()) {
            if (node == CXmlReader::Node::text)
                m_verses.leaveOut(ReaderRule::metadata, m_xml.text());
            if (node != CXmlReader::Node::start)
                continue;
            const std::string name = lower(m_xml.name());
            const std::string content = elementText(m_xml);
            m_verses.leaveOut(ReaderRule::metadata, content);
            if (isBlank(content))
                continue;
            if (name == "title" && info.fullTitle.empty())
                info.fullTitle = content;
            else if (name == "identifier")
                info.shortTitle = info.abbreviatedTitle = content;
            else if (name == "description")
                info.copyright.push_back(content);
            else if (name == "publisher")
                info.copyright.push_back("Publisher: " + content);
            else if (name == "rights")
                info.copyright.push_back("Rights: " + content);
        }
    }

    void skip(ReaderRule reason)
    {
        if (m_xml.isEmpty())
            return;
        m_verses.found(reason, m_xml.line());
        m_verses.leaveOut(reason, elementText(m_xml));
        m_verses.addGap();
    }

    std::string_view m_utf8;
    CXmlReader m_xml;
    CVerseCollector m_verses;
    std::optional<unsigned int> m_chapter; ///< current chapter of the book; nothing before the first
};

} // namespace

SourceBible readZefania(const std::string& fileName, std::string_view utf8)
{
    return CZefaniaReader(fileName, utf8).read();
}

} // namespace Kedrin::ModTool
