#pragma once

#include <string_view>

namespace Kedrin::ModTool {

/// What a USFM marker means for the text of the verses.
enum class UsfmMarker
{
    id,             ///< begins a book
    chapter,        ///< \c
    verse,          ///< \v
    field,          ///< the rest of the line is metadata of the book
    paragraph,      ///< begins a paragraph or a line of the text
    cell,           ///< of a table
    title,          ///< a heading, up to the next paragraph
    canonicalTitle, ///< \d: a heading that belongs to the text
    outside,        ///< an introduction or remark, up to the next paragraph
    sidebar,        ///< \esb: to \esbe
    note,           ///< up to its end marker
    secondNumber,   ///< up to its end marker
    figure,         ///< up to its end marker
    character,      ///< its text is text
    unknown
};

/// A marker's name without its number, or range of columns, and the -s or -e of a milestone: "q" for "q1", "tc" for
/// "tc1-2".
std::string_view baseName(std::string_view marker);

/// @param name  without backslash, with its number: "q1"
UsfmMarker classify(std::string_view name);

/// Whether the name is that of a marker, including those used only in notes. `\line` counts although it is
/// not USFM: texts converted by a word processor contain it.
bool isKnownMarker(std::string_view name);

/// Whether a known marker separates its text from the preceding text: any but a character style.
bool isBreak(std::string_view name);

/// Whether what stands up up to its end marker is one word or several, each whole: "w", "rb".
bool marksWords(std::string_view name);

/// Whether text after a '|' before the end marker is an attribute even without a name: "w", "rb".
bool hasUnnamedAttribute(std::string_view name);

/// Whether the marker ends the paragraph before it.
bool endsParagraph(UsfmMarker marker);

} // namespace Kedrin::ModTool
