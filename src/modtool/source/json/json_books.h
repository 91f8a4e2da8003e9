#pragma once

#include "json_document.h"

#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// What an object says about the book it belongs to.
struct BookClues
{
    std::string_view number;             ///< "": none
    std::vector<std::string_view> names; ///< in any known language, full ones first
    std::vector<std::string_view> codes; ///< abbreviations and ids
    unsigned int position = 0;           ///< in a list of 66 books, from 1; 0: not in such a list
    std::string file;                    ///< OSIS id found by bookOfFile(), or ""
    std::string unknown; ///< set by bookOf(): what to say where nobody knows the book; "" where it is known
    bool isByPosition = false; ///< set by bookOf(): nothing but the position identified the book
    std::uint32_t line = 0;
};

/// Of a book object.
BookClues cluesOfBook(const CJsonDocument& document, const JsonValue& object);

/// Of a chapter or verse object.
BookClues cluesOfPart(const CJsonDocument& document, const JsonValue& object);

/// Whether the other says all of this too.
bool isSaidBy(const BookClues& clues, const BookClues& other);

/// Whether both say the same of the book in at least one way.
bool haveClueInCommon(const BookClues& clues, const BookClues& other);

/// The OSIS id: by a number from 1 to 66 (Protestant order), or else by a name, the position, the file's name,
/// an abbreviation, or a truncated name.
/// @returns "" if there is no clue at all; the name as given for a book that nobody knows, of which `clues.unknown` says
///     "%s:%u: %s is not a known book: write its number from 1 to 66, its English name or its OSIS id, such as Gen"
/// @throws CBuildError
///     "%s:%u: the book is %s by its number, but %s by its name: correct one of them"
std::string bookOf(const CJsonDocument& document, BookClues& clues);

/// The OSIS id of the book that a file name contains ("Genesis.json", "01-genesis.js", "01.js"), or "".
std::string bookOfFile(const std::string& fileName);

/// Whether this is a list of 66 books in which most known names are at their position in Protestant order.
bool isProtestantList(const CJsonDocument& document, const JsonValue& list);

} // namespace Kedrin::ModTool
