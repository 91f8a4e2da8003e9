#pragma once

#include "verse_number.h"

#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// What references of OSIS name: one verse, or several that follow one another.
struct OsisReference
{
    std::string_view book; ///< part of the text that was read, without a work before it
    unsigned int chapter;
    VerseNumber verse; ///< its last is maxSourceNumber where the verses do not end in the chapter
};

/// Reads a reference, a range or several with blanks between them: "KJV:1John.2.3!a", "Gen.1.1-3", "Gen.1.1-Gen.1.3",
/// "Gen.1.1 Gen.1.2". Of several the first and the last count.
/// A book of one chapter may go without it: "Jude.5".
/// @returns nothing where the first is no reference to a verse or a number of it is outside its limits
std::optional<OsisReference> parseOsisReferences(std::string_view list);

/// The number of a chapter: 2 for "Gen.2". Nothing where the text is no reference to one.
std::optional<unsigned int> chapterOf(std::string_view reference);

} // namespace Kedrin::ModTool
