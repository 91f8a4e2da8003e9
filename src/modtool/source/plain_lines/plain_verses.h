#pragma once

#include "bad_lines.h"
#include "verse_collector.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Where the readers of tables and lines put the verses of one file.
class CPlainVerses
{
public:
    /// @param givenBook  OSIS id of the book whose name the text does not say; "": it says every one
    /// @param isForced   the text may not say another one
    /// @param takesUnknown  books that nobody knows are collected like others
    CPlainVerses(CVerseCollector& verses, CBadLines& badLines, std::string givenBook, bool isForced,
                 bool takesUnknown)
        : m_verses(verses),
          m_badLines(badLines),
          m_givenBook(std::move(givenBook)),
          m_isForced(isForced),
          m_takesUnknown(takesUnknown)
    {}

    /// Goes on with a book. Another one than the given one, where that is forced, makes a bad line.
    void beginBook(const std::string& osis, std::string_view name, std::size_t line);

    /// Goes on with a book that nobody knows, or makes a bad line.
    /// @returns whether it goes on
    bool beginUnknownBook(std::string_view name, std::size_t line,
                          const std::function<std::string()>& reason);

    /// Begins a verse of the book; one that no line named is the given one.
    /// @returns whether there is a book
    bool beginVerse(unsigned int chapter, const VerseNumber& number, std::size_t line);

    const std::string& book() const { return m_book.empty() ? m_givenBook : m_book; }

    void addText(std::string_view utf8, std::size_t line) { m_verses.addText(utf8, line); }

    /// Names of books, numbers and marks.
    void leaveOutPlace(std::string_view utf8) { m_verses.leaveOut(ReaderRule::position, utf8); }

    /// Text that the report counts by a rule.
    void leaveOut(ReaderRule why, std::string_view utf8, std::size_t line);

    CVerseCollector& collector() { return m_verses; }
    CBadLines& badLines() { return m_badLines; }

private:
    CVerseCollector& m_verses;
    CBadLines& m_badLines;
    std::string m_givenBook;
    bool m_isForced;
    bool m_takesUnknown;
    std::string m_book; ///< that was begun last; "" for none of this file
    unsigned int m_chapter = 0;
    bool m_inChapter = false;
};

} // namespace Kedrin::ModTool
