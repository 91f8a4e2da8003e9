#include "zefania_reader.h"

#include "book_ids.h"
#include "build_error.h"
#include "letter_proof.h"
#include "messages.h"
#include "osis_header.h"
#include "text_input.h"
#include "verse_collector.h"
#include "xml_reader.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

std::string lower(std::string_view name)
{
    std::string text(name);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

class CReader
{
public:
    CReader(const std::string& fileName, std::string_view utf8) : m_utf8(utf8), m_xml(fileName, utf8) {}

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
        SourceBible bible = m_verses.finish();
        if (bible.verses.empty())
            throw CBuildError(message("%s: holds no verse", m_xml.fileName()));
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

    /// An attribute that the format's two spellings write in small or capital letters.
    std::string attribute(std::string name) const
    {
        std::string value = m_xml.attribute(name.c_str());
        if (!value.empty())
            return value;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](char c) { return static_cast<char>(c - 'a' + 'A'); });
        return m_xml.attribute(name.c_str());
    }

    unsigned int number(const char* attributeName, const char* complaint) const
    {
        const std::string text = attribute(attributeName);
        const auto value = parseVerseNumber(text);
        if (!value || value->first != value->last || value->first == 0)
            m_xml.fail(message(complaint, inQuotes(text)));
        return value->first;
    }

    void startBook()
    {
        m_verses.beginBook(osisOfZefania(number("bnumber", translatable("%s is no book number"))));
        m_verses.beginChapter();
        m_chapter = 0;
        const std::string brief = attribute("bsname");
        m_verses.titles() = {attribute("bname"), brief, brief};
    }

    void startChapter()
    {
        m_chapter = number("cnumber", translatable("%s is no chapter number"));
        m_verses.beginChapter();
    }

    void startVerse()
    {
        const std::string text = attribute("vnumber");
        auto verse = parseVerseNumber(text);
        if (!verse || !m_verses.inBook() || m_chapter == 0)
            m_xml.fail(message("%s is no verse number", inQuotes(text)));
        if (const auto last = parseVerseNumber(attribute("enumber")); last && last->last > verse->last)
            verse->last = last->last;
        m_verses.beginVerse(m_chapter, *verse, m_xml.line());
        if (m_xml.isEmpty())
            m_verses.endVerse();
    }

    /// Stands at INFORMATION; reads to its end.
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
    unsigned int m_chapter = 0;
};

} // namespace

SourceBible readZefania(const std::string& fileName, std::string_view utf8)
{
    return CReader(fileName, utf8).read();
}

} // namespace Kedrin::ModTool
