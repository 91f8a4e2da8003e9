#pragma once

#include <string_view>

namespace Kedrin::ModTool {

/// Whether a space has to be put where a note was removed, so that the words on either side do not run together: what
/// follows begins with a letter, a digit, an opening bracket or quotation mark, and what precedes ends neither with a
/// space nor with an opening one, nor is empty. A mark that opens in one language and closes in another („…“ and
/// “…”, «…» and »…«) closes where its opening partner precedes; otherwise the characters beside it decide.
/// @param before  the text of the verse up to the note, UTF-8
/// @param next    what follows; the more of it is given, the surer is what a quotation mark in front means
bool needsSpaceBetween(std::string_view before, std::string_view next);

} // namespace Kedrin::ModTool
