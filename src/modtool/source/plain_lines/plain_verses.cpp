#include "plain_verses.h"

#include "ascii.h"
#include "messages.h"

namespace Kedrin::ModTool {

void CPlainVerses::beginBook(const std::string& osis, std::string_view name, std::size_t line)
{
    if (osis == m_book)
        return;
    if (m_isForced && osis != m_givenBook)
        return m_badLines.add(line, [&] {
            return message("%s is not %s, the book given with --book", inQuotes(name), m_givenBook);
        });
    m_verses.beginBook(osis);
    m_book = osis;
    m_inChapter = false;
}

bool CPlainVerses::beginUnknownBook(std::string_view name, std::size_t line,
                                    const std::function<std::string()>& reason)
{
    if (!m_takesUnknown || m_isForced) {
        m_badLines.add(line, reason);
        return false;
    }
    m_verses.beginUnknownBook(name, reason());
    m_book = std::string(name) + '?'; // no id of a book
    m_inChapter = false;
    return true;
}

bool CPlainVerses::beginVerse(unsigned int chapter, const VerseNumber& number, std::size_t line)
{
    const bool isByFileName = m_book.empty() && !m_isForced;
    if (m_book.empty()) {
        if (m_givenBook.empty())
            return false;
        beginBook(m_givenBook, m_givenBook, line);
    }
    if (!m_inChapter || chapter != m_chapter)
        m_verses.beginChapter(chapter);
    m_inChapter = true;
    m_chapter = chapter;
    m_verses.beginVerse(chapter, number, line);
    if (isByFileName)
        m_verses.found(ReaderRule::bookByFileName, line);
    return true;
}

void CPlainVerses::leaveOut(ReaderRule why, std::string_view utf8, std::size_t line)
{
    m_verses.leaveOut(why, utf8);
    if (!isBlank(utf8))
        m_verses.found(why, line);
}

} // namespace Kedrin::ModTool
