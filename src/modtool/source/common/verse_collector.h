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

/// Puts a source's verses together from what its reader meets on its way, and applies the rules that all marked-up
/// formats share (doc/formats/source-rules.md).
class CVerseCollector
{
public:
    /// Goes on with a book; one that was not met before becomes the last.
    /// @throws CBuildError  "the source has more than 1000 books"
    void beginBook(std::string_view osis);

    bool inBook() const { return !m_bible.books.empty(); } ///< whether a book was begun

    /// Whether a verse of the book that was begun last was met.
    bool bookHasVerses() const { return !m_pieces.empty() && m_pieces.back().verse.book == m_book; }

    /// The titles of the book that was begun last.
    BookTitles& titles() { return m_bible.bookTitles[m_book]; }

    /// The file that is read, for places in a source of several; "" where there is only one.
    void setFile(const std::string& name) { m_file = name; }

    /// Ends what belongs to the chapter before.
    /// @param number  0 where it is not known yet
    void beginChapter(unsigned int number = 0);

    /// Begins a verse of the book and ends the one before it. Chapter 0 is text before the first verse of chapter 1.
    void beginVerse(unsigned int chapter, const VerseNumber& number, std::size_t line);

    /// Begins a verse whose number cannot be read: it goes on with the one before it in the chapter, or stands before
    /// the first.
    void beginVerseWithoutNumber(unsigned int chapter, std::size_t line);

    /// Ends the verse, if there is one.
    /// @throws CBuildError  not all letters and digits that were read are accounted for
    void endVerse();

    bool inVerse() const { return m_inVerse; }

    /// Text of the verse, or of the title, without markers of USFM; outside both it is counted.
    void addText(std::string_view utf8, std::size_t line);

    /// Text that does not come into the verses; found() counts the thing itself.
    void leaveOut(ReaderRule why, std::string_view utf8);

    /// The end of a line, a paragraph, a cell: words do not run together over it.
    void addBreak();

    /// A note was removed here (CNoteGap); the next two enclose a word that the source marks as one.
    void addGap() { m_gap.add(m_inVerse || m_inTitle); }
    void beginWord() { m_gap.beginWord(); }
    void endWord() { m_gap.endWord(); }

    /// The sign at the beginning of a quotation or paragraph, or at the end of a quotation, which stands in an attribute.
    /// Outside the verses it goes to the next verse, or to the last one.
    void addOpeningSign(std::string_view utf8, std::size_t line);
    void addClosingSign(std::string_view utf8, std::size_t line);

    /// Between the two, text belongs before the next text, be it of this verse or of the next one.
    void beginTitle();
    void endTitle();

    /// Counts something at the verse reached.
    void found(ReaderRule what, std::size_t line) { m_bible.findings.add(what, place(line)); }

    SourceInfo& info() { return m_bible.info; }
    std::string& versification() { return m_bible.versification; }

    /// The letters and digits of all texts that were given, in their order, since the last call.
    std::string takeLetters() { return m_given.take(); }

    /// The Bible that was collected, by the rules. Call it once.
    /// @param source  for the error: a file or folder
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    void openVerse(unsigned int chapter, const VerseNumber& number, bool isPart, std::size_t line);
    std::string place(std::size_t line) const;
    void append(std::string_view utf8);
    void checkLetters();
    void addKnownText(std::string_view utf8, std::size_t line);
    void addPlainText(std::string_view utf8, std::size_t line);
    void leaveOutside(std::string_view utf8, std::size_t line);
    void loseSigns();
    void placeTitle();
    void takeGreekBooks();

    SourceBible m_bible;
    std::vector<VersePiece> m_pieces; ///< the last one is open while m_inVerse
    std::unordered_map<std::string, std::uint32_t> m_bookIndices;
    CGivenLetters m_given;
    CGrowingText m_text;         ///< m_bible.text
    CGrowingText m_waitingTitle; ///< m_title
    std::string m_title;         ///< waits for text to stand before
    std::string m_signs;         ///< wait for the next verse
    std::string m_file;
    std::uint32_t m_book = 0;
    unsigned int m_psalm = 0;      ///< whose verses have not begun; 0: none
    std::size_t m_waitingLine = 0; ///< of the title or sign that waits
    bool m_inVerse = false;
    bool m_inTitle = false;
    CNoteGap m_gap;
    bool m_outsideCounted = false;
};

} // namespace Kedrin::ModTool
