#include "verse_collector.h"

#include "ascii.h"
#include "errors.h"
#include "letters.h"
#include "messages.h"
#include "module_format.h"
#include "stray_markers.h"
#include "unknown_books.h"

#include <algorithm>
#include <utility>

namespace Kedrin::ModTool {

void CVerseCollector::beginBook(std::string_view osis)
{
    const auto index = static_cast<std::uint32_t>(m_bible.books.size());
    const auto [entry, isNew] = m_bookIndices.try_emplace(std::string(osis), index);
    if (entry->second == m_book && !isNew)
        return;
    endVerse();
    insertTitle();
    dropPendingQuotes();
    if (isNew) {
        if (index >= maxSourceBooks)
            throw CBuildError(message("the source has more than %s books", maxSourceBooks));
        m_bible.books.emplace_back(osis);
        m_bible.bookTitles.emplace_back();
    }
    m_book = entry->second;
    m_psalm = 0;
}

void CVerseCollector::beginChapter(unsigned int number)
{
    endVerse();
    insertTitle();
    m_psalm = inBook() && m_bible.books[m_book] == "Ps" ? number : 0;
}

void CVerseCollector::beginVerse(unsigned int chapter, const VerseNumber& number, std::size_t line)
{
    if (chapter == 0)
        return openVerse(1, {0, 0, false}, true, line);
    openVerse(chapter, number, number.isPart, line);
    if (number.last != number.first)
        found(ReaderRule::verseRange, line);
    if (number.isPart)
        found(ReaderRule::versePart, line);
}

void CVerseCollector::beginVerseWithoutNumber(unsigned int chapter, std::size_t line)
{
    const VersePiece* before = m_pieces.empty() ? nullptr : &m_pieces.back();
    const bool goesOn = before && before->verse.book == m_book && before->verse.chapter == chapter;
    const unsigned int number = goesOn ? before->verse.verse : 0;
    openVerse(chapter, {number, number, false}, true, line);
    found(ReaderRule::verseWithoutNumber, line);
}

void CVerseCollector::openVerse(unsigned int chapter, const VerseNumber& number, bool isPart,
                                std::size_t line)
{
    endVerse();
    m_pieces.push_back(
        {{m_book, static_cast<std::uint16_t>(chapter), static_cast<std::uint16_t>(number.first),
          static_cast<std::uint32_t>(m_bible.text.size()), 0, static_cast<std::uint32_t>(line)},
         isPart});
    m_inVerse = true;
    m_psalm = 0;
    if (number.first == 0)
        found(ReaderRule::verseZero, line);
    addKnownText(std::exchange(m_pendingQuotes, {}), line);
}

void CVerseCollector::endVerse()
{
    if (m_inVerse)
        checkLetters();
    m_inVerse = m_inTitle = m_outsideCounted = false;
    m_gap = {};
}

/// Checks that all letters passed in so far are in the text, pending, or counted as left out.
void CVerseCollector::checkLetters()
{
    const std::uint64_t given = m_given.count() + m_bible.attributeLetters;
    const std::uint64_t found = m_text.lettersOf(m_bible.text) + m_waitingTitle.lettersOf(m_title) +
                                countLetters(m_pendingQuotes) + m_bible.findings.letters();
    if (given != found)
        throw CBuildError(
            message("%s: %s letters and digits were read, but %s are accounted for; this is a bug in "
                    "kedrin-module, please report it",
                    position(0), given, found));
}

void CVerseCollector::append(std::string_view utf8)
{
    m_bible.text += utf8;
    SourceVerse& verse = m_pieces.back().verse;
    verse.byteCount = static_cast<std::uint32_t>(m_bible.text.size() - verse.offset);
}

void CVerseCollector::addText(std::string_view utf8, std::size_t line)
{
    m_given.add(utf8);
    addKnownText(utf8, line);
}

void CVerseCollector::leaveOut(ReaderRule why, std::string_view utf8)
{
    m_bible.findings.addLetters(why, m_given.add(utf8));
}

/// Text whose letters have already been counted.
void CVerseCollector::addKnownText(std::string_view utf8, std::size_t line)
{
    if (mayHaveMarkers(utf8) && (m_inTitle || m_inVerse)) {
        unsigned int count = 0;
        const std::string text = withoutMarkers(utf8, count);
        m_bible.findings.addLetters(ReaderRule::unknownMarker, countLetters(utf8) - countLetters(text));
        for (; count != 0; --count)
            found(ReaderRule::unknownMarker, line);
        addPlainText(text, line);
    } else {
        addPlainText(utf8, line);
    }
}

void CVerseCollector::addPlainText(std::string_view utf8, std::size_t line)
{
    if (m_inTitle) {
        m_waitingLine = isBlank(utf8) ? m_waitingLine : line;
        m_title += m_gap.needsSpace(m_title, utf8) ? " " : "";
        m_title += utf8;
        return;
    }
    if (!m_inVerse) {
        if (!isBlank(utf8))
            leaveOutside(utf8, line);
        return;
    }
    if (!m_title.empty() && !isBlank(utf8))
        insertTitle();
    if (m_gap.needsSpace(m_bible.textOf(m_pieces.back().verse), utf8))
        append(" ");
    append(utf8);
}

void CVerseCollector::leaveOutside(std::string_view utf8, std::size_t line)
{
    const ReaderRule why = m_psalm == 0 ? ReaderRule::outside : ReaderRule::psalmText;
    m_bible.findings.addLetters(why, countLetters(utf8));
    if (!m_outsideCounted)
        found(why, line);
    if (m_psalm != 0 && !m_outsideCounted)
        m_bible.findings.addPsalmText("Ps " + std::to_string(m_psalm) + ", " + position(line), utf8);
    else if (m_psalm != 0)
        m_bible.findings.extendPsalmText(utf8);
    m_outsideCounted = true;
}

void CVerseCollector::addOpeningSign(std::string_view utf8, std::size_t line)
{
    m_bible.attributeLetters += countLetters(utf8);
    if (m_inVerse || m_inTitle)
        addKnownText(utf8, line);
    else {
        m_pendingQuotes += utf8;
        m_waitingLine = line;
    }
}

void CVerseCollector::addClosingSign(std::string_view utf8, std::size_t line)
{
    m_bible.attributeLetters += countLetters(utf8);
    if (m_inVerse || m_inTitle || m_pieces.empty() || m_pieces.back().verse.book != m_book) {
        addKnownText(utf8, line);
        return;
    }
    if (isBlank(utf8))
        return;
    SourceVerse& verse = m_pieces.back().verse; // its text is at the end
    verse.byteCount = static_cast<std::uint32_t>(trimmedEnd(m_bible.textOf(verse)).size());
    m_bible.text.resize(verse.offset + verse.byteCount);
    append(utf8);
}

void CVerseCollector::dropPendingQuotes()
{
    const std::string signs = std::exchange(m_pendingQuotes, {});
    m_bible.findings.addLetters(ReaderRule::outside, countLetters(signs));
    if (!isBlank(signs))
        found(ReaderRule::outside, m_waitingLine);
}

void CVerseCollector::addBreak()
{
    m_outsideCounted = false;
    if (m_inTitle)
        m_title += ' ';
    else if (m_inVerse)
        append(" ");
}

void CVerseCollector::beginTitle()
{
    if (!m_title.empty())
        m_title += ' ';
    m_inTitle = true;
}

void CVerseCollector::endTitle() { m_inTitle = false; }

/// If no verse is open, no text followed: the title is appended to the last verse.
void CVerseCollector::insertTitle()
{
    m_inTitle = false;
    const std::string title = std::move(m_title);
    m_title.clear();
    m_waitingTitle = {};
    if (isBlank(title))
        return;
    if (m_pieces.empty() || m_pieces.back().verse.book != m_book) {
        m_bible.findings.addLetters(ReaderRule::outside, countLetters(title));
        found(ReaderRule::outside, m_waitingLine);
        return;
    }
    found(ReaderRule::canonicalTitle, 0);
    if (!m_inVerse) {
        VersePiece piece = m_pieces.back();
        piece.verse.offset = static_cast<std::uint32_t>(m_bible.text.size());
        piece.isPart = true;
        m_pieces.push_back(piece);
    }
    append(' ' + title + ' ');
}

std::string CVerseCollector::position(std::size_t line) const
{
    if (!m_pieces.empty() && (m_inVerse || line == 0))
        return m_bible.positionOf(m_pieces.back().verse);
    return m_file.empty() ? message("line %s", line) : message("line %s of %s", line, m_file);
}

void CVerseCollector::beginUnknownBook(std::string_view name, const std::string& complaint)
{
    beginBook(idOfUnknownBook(name));
    const auto isThis = [&](const UnknownBook& unknown) { return unknown.book == m_book; };
    if (std::any_of(m_bible.unknownBooks.begin(), m_bible.unknownBooks.end(), isThis))
        return;
    m_bible.unknownBooks.push_back({m_book, complaint + nearestBook(name)});
}

SourceBible CVerseCollector::finish(const std::string& source)
{
    endVerse();
    insertTitle();
    dropPendingQuotes();
    takeGreekBooks();
    joinPieces(std::move(m_pieces), m_bible);
    if (m_bible.verses.empty())
        throw CBuildError(message("%s: contains no verses", source));
    return std::move(m_bible);
}

/// Eastern editions have only the Greek Esther and Daniel.
void CVerseCollector::takeGreekBooks()
{
    for (const auto& [greek, book] : {std::pair("EsthGr", "Esth"), std::pair("DanGr", "Dan")})
        if (const auto found = m_bookIndices.find(greek);
            found != m_bookIndices.end() && !m_bookIndices.contains(book)) {
            m_bible.books[found->second] = book;
            m_bible.findings.add(ReaderRule::greekBook, book);
        }
}

} // namespace Kedrin::ModTool
