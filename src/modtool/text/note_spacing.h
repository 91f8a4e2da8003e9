#pragma once

#include <string_view>

namespace Kedrin::ModTool {

/// Removing a note may join two words: whether a space is needed in its place. It is if what follows begins
/// with a letter, a digit, an opening bracket or quotation mark, and what precedes is not empty and does not
/// end with a space or an opening mark. A mark that opens in one language and closes in another („…“ and “…”,
/// «…» and »…«) closes where its opening partner precedes; otherwise the characters beside it decide.
/// @param before  the text of the verse up to the note, UTF-8
/// @param next    what follows; more than one character helps to tell whether a leading quotation mark opens
///                or closes
bool needsSpaceBetween(std::string_view before, std::string_view next);

} // namespace Kedrin::ModTool
