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

/// What a reader may meet that does not stand in the module as it stands in the source.
enum class ReaderRule
{
    verseRange,           ///< several verses with one text: the first has it
    versePart,            ///< verse 1a, 1b: joined
    verseAgain,           ///< a verse given twice: joined
    verseRepeated,        ///< given twice with the same text: taken once
    verseZero,            ///< put before the verse that follows
    canonicalTitle,       ///< a psalm title: put before the text that follows
    verseWithoutNumber,   ///< goes on with the verse before it
    chapterWithoutNumber, ///< taken for the one that follows
    bookByName,           ///< a book without a number or code, known by its name
    greekBook,            ///< Greek Esther or Daniel, taken for Esther or Daniel
    unknownMarker,        ///< its text is kept
    unmarkedQuote,        ///< a quotation for which the source gives no sign
    note,                 ///< a footnote or cross reference, left out
    title,                ///< a heading, left out
    otherReading,         ///< left out
    secondNumber,         ///< another numbering's number of a chapter or verse, left out
    figure,               ///< a picture, an index entry, a pronunciation: left out
    psalmText,            ///< text before a psalm's first verse, which may be its title: left out and named
    outside,              ///< text outside all verses, left out
    unfinishedNote,       ///< a note without an end: ended with its paragraph
    furtherColumn,        ///< of a table, beside book, chapter, verse and text: left out
    attribute,            ///< of a marker: no line in the report
    metadata, ///< what the source says of itself, and what it calls its books: no line in the report
    place,    ///< names of books, numbers and marks in the lines of a plain text: no line in the report
    count
};

/// How often a reader met what, where first, and how many letters of the source were left out with it.
class SourceFindings
{
public:
    void add(ReaderRule what, const std::string& place)
    {
        m_found[static_cast<std::size_t>(what)].add(place);
    }

    /// Letters and digits that do not stand in the verses because of the rule.
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

    /// Names a text of ReaderRule::psalmText that was counted.
    void addPsalmText(const std::string& place, std::string_view utf8);

    /// The text of the last one goes on.
    void extendPsalmText(std::string_view utf8);

    /// A line of the report for each kind that was met and for each text that is named, ended by LF; "" for none.
    std::string text() const;

    /// For the account of letters, where those that are not in the verses stood: "12 in 3 notes".
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
