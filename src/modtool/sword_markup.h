#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A raw SWORD entry made fit for being rendered as plain text:
///  - what follows the end of a book (a glossary, say, stored with the book's last verse) is cut off;
///  - where a note stands between two words without a blank of its own, a blank is put behind it, since the note
///    goes and the words would run together.
std::string cleanEntry(std::string_view raw);

/// A paragraph of a module's configuration as plain text: RTF controls become line ends or go, HTML tags go.
/// @returns its lines, none of them empty
std::string plainConfiguration(std::string_view value);

} // namespace Kedrin::ModTool
