#pragma once

#include "verse_number.h"

#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// How the lines of a plain text begin.
enum class VerseForm
{
    reference,    ///< Gen 1:1 text
    chapterVerse, ///< 1:1 text, [1:1] text, **[1:1]** text
    verse,        ///< 1 text, [1] text, 1. text
    hashed        ///< #1:1#text
};

/// The beginning of a line with a verse.
struct VerseStart
{
    std::string_view book; ///< of VerseForm::reference
    unsigned int chapter;  ///< 0 for VerseForm::verse
    VerseNumber verse;
    std::string_view place; ///< all that stands before the text
    std::string_view text;
};

/// Reads the line in that form.
/// @returns nothing where it does not begin so
std::optional<VerseStart> verseStart(std::string_view line, VerseForm form);

/// A decimal number up to maxSourceNumber; nothing for anything else.
std::optional<unsigned int> plainNumber(std::string_view digits);

} // namespace Kedrin::ModTool
