#include "xml_bible.h"

#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "verse_number.h"
#include "xml_letters.h"

#include <algorithm>

namespace Kedrin::ModTool {

std::uint64_t CXmlBible::read()
{
    if (m_xml.next() != CXmlReader::Node::start || m_xml.name() != m_names.root)
        m_xml.fail(message("the root element is %s, not %s", inQuotes(m_xml.name()), m_names.root));
    readRoot();
    for (auto node = m_xml.next(); node != CXmlReader::Node::none; node = m_xml.next()) {
        if (node == CXmlReader::Node::text) {
            m_verses.addText(m_xml.text(), m_xml.line());
            continue;
        }
        const std::string name(m_xml.name());
        if (node == CXmlReader::Node::end) {
            end(name);
            continue;
        }
        const bool isEmpty = m_xml.isEmpty();
        start(name);
        if (isEmpty)
            end(name);
    }
    m_verses.endTitle();
    m_verses.endVerse();
    return proveXmlLetters(m_xml.fileName(), m_utf8, m_verses.takeLetters());
}

void CXmlBible::beginBook(std::string_view osis)
{
    m_hasBook = true;
    m_verses.beginBook(osis);
    m_verses.beginChapter();
    m_chapter.reset();
}

void CXmlBible::beginUnknownBook(const std::string& name, const std::string& complaint, std::size_t line)
{
    m_hasBook = true;
    m_verses.beginUnknownBook(name, atLine(m_xml.fileName(), line, complaint));
    m_verses.beginChapter();
    m_chapter.reset();
}

void CXmlBible::beginChapter(const std::string& number)
{
    const auto read = parseVerseNumber(number);
    m_chapter = read ? read->first : std::min(m_chapter.value_or(0) + 1, maxSourceNumber);
    m_verses.beginChapter(*m_chapter);
    if (!read)
        m_verses.found(ReaderRule::chapterWithoutNumber, m_xml.line());
}

void CXmlBible::beginVerse(const std::string& number, const std::string& last)
{
    requireBook();
    const unsigned int chapter = m_chapter.value_or(1); // a book of one chapter may go without its element
    auto verse = parseVerseNumber(number);
    if (!verse) {
        m_verses.beginVerseWithoutNumber(std::max(chapter, 1u), m_xml.line());
        return;
    }
    if (const auto end = parseVerseNumber(last); end && end->last > verse->last)
        verse->last = end->last;
    m_verses.beginVerse(chapter, *verse, m_xml.line());
}

void CXmlBible::requireBook() const
{
    if (!m_hasBook)
        m_xml.fail(message("a verse before any %s", m_names.book));
}

void CXmlBible::leaveOut(ReaderRule reason)
{
    if (m_xml.isEmpty())
        return;
    m_verses.found(reason, m_xml.line());
    m_verses.leaveOut(reason, elementText(m_xml));
    m_verses.addGap();
}

} // namespace Kedrin::ModTool
