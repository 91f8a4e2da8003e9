#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// Counts an event and keeps its first position.
struct Tally
{
    std::uint64_t count = 0;
    std::string firstPosition; ///< "Gen 1:1"; "" while the count is 0

    void add(const std::string& position)
    {
        if (count++ == 0)
            firstPosition = position;
    }
};

/// What a reader may find that the module stores differently from the source.
enum class ReaderRule
{
    verseRange,           ///< several verses with one text, kept in the first
    versePart,            ///< verse 1a, 1b: joined
    verseAgain,           ///< a verse given twice: joined
    verseRepeated,        ///< given twice with the same text: taken once
    verseZero,            ///< put before the verse that follows
    canonicalTitle,       ///< a psalm title: put before the text that follows
    verseWithoutNumber,   ///< joined to the verse before it
    chapterWithoutNumber, ///< taken as the next one
    bookByName,           ///< a book without a number or code, identified by its name
    greekBook,            ///< Greek Esther or Daniel, taken as Esther or Daniel
    unknownMarker,        ///< its text is kept
    unmarkedQuote,        ///< a quotation without a quotation mark in the source
    note,                 ///< a footnote or cross reference, left out
    title,                ///< a heading, left out
    otherReading,         ///< left out
    secondNumber,         ///< a chapter or verse number in another numbering, left out
    textNumber,           ///< the chapter or verse number repeated in the text, left out
    figure,               ///< a picture, an index entry, a pronunciation: left out
    psalmText,            ///< text before a psalm's first verse, perhaps its title: left out and listed
    outside,              ///< text outside all verses, left out
    unfinishedNote,       ///< an unclosed note: closed at the end of its paragraph
    bookByFileName,       ///< a file that does not state its book, identified by its name
    furtherColumn,        ///< of a table, beside book, chapter, verse and text: left out
    otherTable,           ///< a text in a further table of verses of a database, left out
    attribute,            ///< of a marker: no line in the report
    tag,                  ///< in a text of a format without elements: no line in the report
    metadata,             ///< metadata and book titles of the source: no line in the report
    position, ///< names of books, numbers and marks in the lines of a plain text: no line in the report
    count
};

/// Counts what a reader found: how often, where first, and how many letters of the source were left out with
/// it.
class SourceFindings
{
public:
    void add(ReaderRule what, const std::string& position)
    {
        m_found[static_cast<std::size_t>(what)].add(position);
    }

    /// Counts letters and digits left out of the verses by the rule.
    void addLetters(ReaderRule what, std::uint64_t count)
    {
        m_letters[static_cast<std::size_t>(what)] += count;
    }

    const Tally& operator[](ReaderRule what) const { return m_found[static_cast<std::size_t>(what)]; }
    std::uint64_t letters(ReaderRule what) const { return m_letters[static_cast<std::size_t>(what)]; }
    std::uint64_t letters() const; ///< of all kinds

    /// A line of the report, before all others: how the source was understood.
    /// @param label  English, translated here; a line that was said before is not said again
    void say(const char* label, const std::string& text);

    /// Lists a text counted as ReaderRule::psalmText.
    void addPsalmText(const std::string& position, std::string_view utf8);

    /// Appends to the text listed last.
    void extendPsalmText(std::string_view utf8);

    /// The lines of the report, each ended by LF: one for each kind found and each text listed; "" for none.
    std::string text() const;

    /// What was found under a label of the report: "12 notes", "1 title".
    /// @param label  English
    std::vector<std::string> counts(std::string_view label) const;

    /// For the account of letters, where those left out of the verses were: "12 in 3 notes".
    std::vector<std::string> letterParts() const;

private:
    static bool hasLine(ReaderRule what) { return what < ReaderRule::attribute; }
    std::string psalmTextLines() const;

    std::array<Tally, static_cast<std::size_t>(ReaderRule::count)> m_found;
    std::array<std::uint64_t, static_cast<std::size_t>(ReaderRule::count)> m_letters{};
    std::vector<std::string> m_said;
    std::vector<std::pair<std::string, std::string>> m_psalmTexts; ///< places and texts, bounded
};

} // namespace Kedrin::ModTool
