#pragma once

#include "verse_number.h"

#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// One verse or several consecutive verses named by an OSIS reference.
struct OsisReference
{
    std::string_view book; ///< part of the text passed in, without a work prefix
    unsigned int chapter;
    VerseNumber verse; ///< its last is maxSourceNumber if the range extends past the chapter
};

/// Reads a reference, a range, or several separated by spaces: "KJV:1John.2.3!a", "Gen.1.1-3",
/// "Gen.1.1-Gen.1.3", "Gen.1.1 Gen.1.2". Of several, the first and the last are used. The chapter may be
/// omitted in a book of one chapter: "Jude.5".
/// @returns nothing if the first is not a verse reference or has a number out of range
std::optional<OsisReference> parseOsisReferences(std::string_view list);

/// The number of a chapter: 2 for "Gen.2". Nothing if the text is not a reference to one.
std::optional<unsigned int> chapterOf(std::string_view reference);

} // namespace Kedrin::ModTool
