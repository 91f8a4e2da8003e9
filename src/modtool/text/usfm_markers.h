#pragma once

#include <string_view>

namespace Kedrin::ModTool {

/// What a USFM marker means for the text of the verses.
enum class UsfmMarker
{
    id,             ///< begins a book
    chapter,        ///< \c
    verse,          ///< \v
    field,          ///< the rest of the line tells of the book, not of the text
    paragraph,      ///< begins a paragraph or a line of the text
    cell,           ///< of a table
    title,          ///< a heading: to the next paragraph
    canonicalTitle, ///< \d: a heading that belongs to the text
    outside,        ///< an introduction, a remark: to the next paragraph
    sidebar,        ///< \esb: to \esbe
    note,           ///< to its end marker
    secondNumber,   ///< to its end marker
    figure,         ///< to its end marker
    character,      ///< its text is text
    unknown
};

/// A marker's name without its number, or range of columns, and the -s or -e of a milestone: "q" for "q1", "tc" for
/// "tc1-2".
std::string_view baseName(std::string_view marker);

/// @param name  without backslash, with its number: "q1"
UsfmMarker classify(std::string_view name);

/// Whether a name is a marker's, also one that stands only in notes. `\line`, which is no marker of USFM, counts: texts
/// that came through a word processor have it.
bool isKnownMarker(std::string_view name);

/// Whether a known marker's text is apart from the one before it: any that does not mark characters.
bool isBreak(std::string_view name);

/// Whether what stands up to its end marker is one word or several, each whole: "w", "rb".
bool marksWords(std::string_view name);

/// Whether what stands behind a '|' before the marker's end is an attribute even without a name: "w", "rb".
bool hasUnnamedAttribute(std::string_view name);

/// Whether the marker ends the paragraph before it.
bool endsParagraph(UsfmMarker marker);

} // namespace Kedrin::ModTool
