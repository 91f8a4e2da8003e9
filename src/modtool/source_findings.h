#pragma once

#include "occasions.h"

#include <array>
#include <string>

namespace Kedrin::ModTool {

/// What a reader may meet that does not stand in the module as it stands in the source.
enum class ReaderRule
{
    verseRange,     ///< several verses with one text: the first has it
    versePart,      ///< verse 1a, 1b: joined
    verseAgain,     ///< a verse given twice: joined
    verseRepeated,  ///< given twice with the same text: taken once
    verseZero,      ///< put before the verse that follows
    canonicalTitle, ///< a psalm title: put before the text that follows
    greekBook,      ///< Greek Esther or Daniel, taken for Esther or Daniel
    unknownMarker,  ///< its text is kept
    unmarkedQuote,  ///< a quotation for which the source gives no sign
    note,           ///< a footnote or cross reference, left out
    title,          ///< a heading, left out
    otherReading,   ///< left out
    secondNumber,   ///< another numbering's number of a chapter or verse, left out
    figure,         ///< a picture, an index entry, a pronunciation: left out
    outside,        ///< text outside all verses, left out
    unfinishedNote, ///< a note without an end: ended with its paragraph
    count
};

/// How often a reader met what, and where first.
class SourceFindings
{
public:
    void add(ReaderRule what, const std::string& place)
    {
        m_found[static_cast<std::size_t>(what)].add(place);
    }

    const Occasions& operator[](ReaderRule what) const { return m_found[static_cast<std::size_t>(what)]; }

    /// A line of the report for each kind that was met, ended by LF; "" for none.
    std::string text() const;

private:
    std::array<Occasions, static_cast<std::size_t>(ReaderRule::count)> m_found;
};

} // namespace Kedrin::ModTool
