#include "verse_collector.h"

#include "build_error.h"
#include "messages.h"
#include "text_input.h"
#include "word_gap.h"

#include <algorithm>
#include <charconv>
#include <tuple>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view rangeSigns[] = {"-", "\u2013", "\u2014", "\u2011", ","};

auto placeIn(const SourceVerse& verse) { return std::tuple(verse.book, verse.chapter, verse.verse); }

/// Takes a number and the letter of a part off the front.
std::optional<unsigned int> takeNumber(std::string_view& text, bool& isPart)
{
    unsigned int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || value > maxSourceNumber)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z') {
        isPart = true;
        text.remove_prefix(1);
    }
    return value;
}

/// Whether two pieces that follow one another make one verse: the same place, or verse 0 and the next one.
bool belongTogether(const SourceVerse& first, const SourceVerse& second)
{
    return first.book == second.book && first.chapter == second.chapter &&
           (first.verse == second.verse || first.verse == 0);
}

std::string_view trimmed(std::string_view text)
{
    constexpr const char* blanks = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

} // namespace

std::optional<VerseNumber> parseVerseNumber(std::string_view text)
{
    VerseNumber number{0, 0, false};
    bool lastIsPart = false;
    const auto first = takeNumber(text, number.isPart);
    if (!first)
        return std::nullopt;
    number.first = number.last = *first;
    while (!text.empty()) {
        const auto* between = std::find_if(std::begin(rangeSigns), std::end(rangeSigns),
                                           [&](std::string_view sign) { return text.starts_with(sign); });
        if (between == std::end(rangeSigns))
            return std::nullopt;
        text.remove_prefix(between->size());
        const auto last = takeNumber(text, lastIsPart);
        if (!last || *last < number.last)
            return std::nullopt;
        number.last = *last;
    }
    return number;
}

void CVerseCollector::beginBook(std::string_view osis)
{
    const auto index = static_cast<std::uint32_t>(m_bible.books.size());
    const auto [entry, isNew] = m_bookIndices.try_emplace(std::string(osis), index);
    if (entry->second == m_book && !isNew)
        return;
    endVerse();
    placeTitle();
    if (isNew) {
        if (index >= maxSourceBooks)
            throw CBuildError(message("the source has more than %s books", maxSourceBooks));
        m_bible.books.emplace_back(osis);
        m_bible.bookTitles.emplace_back();
    }
    m_book = entry->second;
}

void CVerseCollector::beginChapter()
{
    endVerse();
    placeTitle();
}

void CVerseCollector::beginVerse(unsigned int chapter, const VerseNumber& number, std::size_t line)
{
    endVerse();
    m_pieces.push_back(
        {{m_book, static_cast<std::uint16_t>(chapter), static_cast<std::uint16_t>(number.first),
          static_cast<std::uint32_t>(m_bible.text.size()), 0, static_cast<std::uint32_t>(line)},
         number.isPart});
    m_inVerse = true;
    if (number.last != number.first)
        found(ReaderRule::verseRange, line);
    if (number.isPart)
        found(ReaderRule::versePart, line);
    if (number.first == 0)
        found(ReaderRule::verseZero, line);
}

void CVerseCollector::endVerse() { m_inVerse = m_inTitle = m_hasGap = m_outsideCounted = false; }

void CVerseCollector::append(std::string_view utf8)
{
    m_bible.text += utf8;
    SourceVerse& verse = m_pieces.back().verse;
    verse.byteCount = static_cast<std::uint32_t>(m_bible.text.size() - verse.offset);
}

void CVerseCollector::addText(std::string_view utf8, std::size_t line)
{
    if (m_inTitle) {
        m_title += utf8;
        return;
    }
    if (!m_inVerse) {
        if (!m_outsideCounted && !isBlank(utf8)) {
            found(ReaderRule::outside, line);
            m_outsideCounted = true;
        }
        return;
    }
    if (!m_title.empty() && !isBlank(utf8))
        placeTitle();
    if (m_hasGap && !utf8.empty()) {
        const SourceVerse& verse = m_pieces.back().verse;
        if (beginsWord(utf8) && !endsOpen(m_bible.textOf(verse)))
            append(" ");
        m_hasGap = false;
    }
    append(utf8);
}

void CVerseCollector::addBreak()
{
    m_outsideCounted = false;
    if (m_inTitle)
        m_title += ' ';
    else if (m_inVerse)
        append(" ");
}

void CVerseCollector::addGap() { m_hasGap = m_inVerse && !m_inTitle; }

void CVerseCollector::beginTitle()
{
    if (!m_title.empty())
        m_title += ' ';
    m_inTitle = true;
}

void CVerseCollector::endTitle() { m_inTitle = false; }

/// Where no verse is open, no text followed: the title goes behind the last verse.
void CVerseCollector::placeTitle()
{
    m_inTitle = false;
    const std::string title = std::move(m_title);
    m_title.clear();
    if (isBlank(title))
        return;
    if (m_pieces.empty() || m_pieces.back().verse.book != m_book) {
        found(ReaderRule::outside, 0);
        return;
    }
    found(ReaderRule::canonicalTitle, 0);
    if (!m_inVerse) {
        Piece piece = m_pieces.back();
        piece.verse.offset = static_cast<std::uint32_t>(m_bible.text.size());
        piece.isPart = true;
        m_pieces.push_back(piece);
    }
    append(' ' + title + ' ');
}

std::string CVerseCollector::place(std::size_t line) const
{
    if (!m_pieces.empty() && (m_inVerse || line == 0))
        return m_bible.placeOf(m_pieces.back().verse);
    return "in line " + std::to_string(line);
}

SourceBible CVerseCollector::finish()
{
    endVerse();
    placeTitle();
    takeGreekBooks();
    mergePieces();
    return std::move(m_bible);
}

/// Editions of the East have only one Esther and one Daniel, the Greek ones.
void CVerseCollector::takeGreekBooks()
{
    for (const auto& [greek, book] : {std::pair("EsthGr", "Esth"), std::pair("DanGr", "Dan")})
        if (const auto found = m_bookIndices.find(greek);
            found != m_bookIndices.end() && !m_bookIndices.contains(book)) {
            m_bible.books[found->second] = book;
            m_bible.findings.add(ReaderRule::greekBook, book);
        }
}

void CVerseCollector::mergePieces()
{
    std::stable_sort(m_pieces.begin(), m_pieces.end(),
                     [](const Piece& a, const Piece& b) { return placeIn(a.verse) < placeIn(b.verse); });
    m_bible.verses.reserve(m_pieces.size());
    for (std::size_t begin = 0; begin < m_pieces.size();) {
        std::size_t end = begin + 1;
        while (end < m_pieces.size() && belongTogether(m_pieces[end - 1].verse, m_pieces[end].verse))
            ++end;
        m_bible.verses.push_back(end == begin + 1 ? m_pieces[begin].verse : joined(begin, end));
        SourceVerse& verse = m_bible.verses.back();
        verse.verse = std::max<std::uint16_t>(verse.verse, 1); // a chapter of nothing but verse 0
        begin = end;
    }
    m_pieces.clear();
}

/// One verse of the pieces begin to end.
SourceVerse CVerseCollector::joined(std::size_t begin, std::size_t end)
{
    std::string text;
    for (std::size_t i = begin; i < end; ++i) {
        const Piece& piece = m_pieces[i];
        const std::string_view pieceText = m_bible.textOf(piece.verse);
        if (i != begin && !piece.isPart && piece.verse.verse == m_pieces[i - 1].verse.verse) {
            const bool isRepeated = trimmed(pieceText) == trimmed(m_bible.textOf(m_pieces[i - 1].verse));
            m_bible.findings.add(isRepeated ? ReaderRule::verseRepeated : ReaderRule::verseAgain,
                                 m_bible.placeOf(piece.verse));
            if (isRepeated)
                continue;
        }
        text += pieceText;
        text += ' ';
    }
    SourceVerse verse = m_pieces[begin].verse;
    verse.verse = m_pieces[end - 1].verse.verse;
    verse.offset = static_cast<std::uint32_t>(m_bible.text.size());
    verse.byteCount = static_cast<std::uint32_t>(text.size());
    m_bible.text += text;
    return verse;
}

} // namespace Kedrin::ModTool
