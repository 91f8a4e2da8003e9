#pragma once

#include "letter_account.h"
#include "note_gap.h"
#include "source_bible.h"
#include "verse_number.h"
#include "verse_pieces.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Kedrin::ModTool {

/// Builds the verses of a source from the events that its reader reports, and applies the rules shared by all
/// marked-up formats (doc/formats/source-rules.md).
class CVerseCollector
{
public:
    /// Continues a book; one not seen before becomes the last.
    /// @throws CBuildError  "the source has more than 1000 books"
    void beginBook(std::string_view osis);

    /// Continues a book that nobody knows. Its verses are collected like others; whoever gets the Bible decides what
    /// becomes of them.
    /// @param name       as the source gives it
    /// @param complaint  for the user, with the file and the line; a name like it is added
    /// @throws CBuildError  as beginBook()
    void beginUnknownBook(std::string_view name, const std::string& complaint);

    bool inBook() const { return !m_bible.books.empty(); } ///< whether a book was begun

    /// Whether the current book has verses.
    bool bookHasVerses() const { return !m_pieces.empty() && m_pieces.back().verse.book == m_book; }

    /// The titles of the current book.
    BookTitles& titles() { return m_bible.bookTitles[m_book]; }

    /// The file being read, for positions in a source of several files; "" for a single file.
    void setFile(const std::string& name) { m_file = name; }

    /// Ends the previous chapter.
    /// @param number  0 if not yet known
    void beginChapter(unsigned int number = 0);

    /// Begins a verse of the book and ends the one before it. Chapter 0 is text before the first verse of chapter 1.
    void beginVerse(unsigned int chapter, const VerseNumber& number, std::size_t line);

    /// Begins a verse whose number cannot be read: it is joined to the one before it in the chapter, or
    /// prepended to the first.
    void beginVerseWithoutNumber(unsigned int chapter, std::size_t line);

    /// Ends the verse, if there is one.
    /// @throws CBuildError  not all letters and digits that were read are accounted for
    void endVerse();

    bool inVerse() const { return m_inVerse; }

    /// Adds text to the verse or title, without USFM markers; text outside both is counted as left out.
    void addText(std::string_view utf8, std::size_t line);

    /// Counts the letters of text that is left out of the verses; found() counts the occurrence itself.
    void leaveOut(ReaderRule why, std::string_view utf8);

    /// The end of a line, paragraph or cell: separates words.
    void addBreak();

    /// A note was removed here (CNoteGap); the next two enclose a word that the source marks as one.
    void addGap() { m_gap.add(m_inVerse || m_inTitle); }
    void beginWord() { m_gap.beginWord(); }
    void endWord() { m_gap.endWord(); }

    /// A quotation or paragraph mark taken from an attribute. Outside the verses an opening mark is added to
    /// the next verse, a closing one to the last.
    void addOpeningSign(std::string_view utf8, std::size_t line);
    void addClosingSign(std::string_view utf8, std::size_t line);

    /// Text between these calls is a canonical title, prepended to the next text.
    void beginTitle();
    void endTitle();

    /// Counts an occurrence at the current position.
    void found(ReaderRule what, std::size_t line) { m_bible.findings.add(what, position(line)); }

    SourceInfo& info() { return m_bible.info; }
    std::string& versification() { return m_bible.versification; }

    /// The letters and digits of all texts passed in since the last call, in order.
    std::string takeLetters() { return m_given.take(); }

    /// The collected Bible. Call once.
    /// @param source  for the error: a file or folder
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    void openVerse(unsigned int chapter, const VerseNumber& number, bool isPart, std::size_t line);
    std::string position(std::size_t line) const;
    void append(std::string_view utf8);
    void checkLetters();
    void addKnownText(std::string_view utf8, std::size_t line);
    void addPlainText(std::string_view utf8, std::size_t line);
    void leaveOutside(std::string_view utf8, std::size_t line);
    void dropPendingQuotes();
    void insertTitle();
    void takeGreekBooks();

    SourceBible m_bible;
    std::vector<VersePiece> m_pieces; ///< the last one is open while m_inVerse
    std::unordered_map<std::string, std::uint32_t> m_bookIndices;
    CGivenLetters m_given;
    CGrowingText m_text;         ///< m_bible.text
    CGrowingText m_waitingTitle; ///< m_title
    std::string m_title;         ///< pending until text follows
    std::string m_pendingQuotes; ///< pending until the next verse
    std::string m_file;
    std::uint32_t m_book = 0;
    unsigned int m_psalm = 0;      ///< psalm number before its first verse; otherwise 0
    std::size_t m_waitingLine = 0; ///< of the pending title or quotation mark
    bool m_inVerse = false;
    bool m_inTitle = false;
    CNoteGap m_gap;
    bool m_outsideCounted = false;
};

} // namespace Kedrin::ModTool
