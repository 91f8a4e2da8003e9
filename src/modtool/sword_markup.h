#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Where the tag that ends a book begins in a raw entry, or npos. Containers are stored as pairs of empty elements with
/// ids.
std::size_t endOfBook(std::string_view raw);

/// A raw SWORD entry made fit for being rendered as plain text:
///  - what follows the end of a book (a glossary, say, stored with the book's last verse) is cut off;
///  - where a note stands between two words without a blank of its own, a blank is put behind it, since the note
///    goes and the words would run together;
///  - the names of speakers, headings between the lines of a poem, go: the library leaves them in the text;
///  - markers of USFM that a conversion left in the text go.
std::string cleanEntry(std::string_view whole);

/// The library loses `&amp;`, `&lt;` and `&gt;` on the way to plain text where a module's headings can be switched off.
/// The first function puts characters for private use in their place, the second makes the characters that were
/// meant of those.
std::string withoutEntities(std::string_view raw);
std::string withMeantCharacters(std::string_view plain);

/// A paragraph of a module's configuration as plain text: RTF controls become line ends or go, HTML tags go.
/// @returns its lines, none of them empty
std::string plainConfiguration(std::string_view value);

} // namespace Kedrin::ModTool
