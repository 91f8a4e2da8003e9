#pragma once

#include <cstdint>
#include <string_view>

namespace Kedrin::ModTool {

/// The meaning of an object key; json_fields.cpp lists the spellings.
enum class Field : std::uint8_t
{
    none,
    books,
    book,       ///< of a verse or chapter: a number or a name
    bookNumber, ///< the same, a number
    bookName,
    bookCode,
    chapters,
    chapter,
    verses,
    verse,
    rows,
    row, ///< a list of values without keys: id, book, chapter, verse, text
    text,
    reference, ///< "Gen 1:1"
    number,    ///< of the object itself
    id,
    name,
    title,
    shortName,
    translation,
    rights,
    heading,
    note
};

/// The meaning of a key, ignoring case, "_", "-" and spaces.
Field fieldOf(std::string_view key);

} // namespace Kedrin::ModTool
