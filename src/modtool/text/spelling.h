#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// How many letters must be put in, taken out, exchanged or swapped with the next to make one text of the other; nothing where they are not alike
/// (see isLikeSpelling()).
std::optional<std::size_t> lettersMisspelt(std::string_view typed, std::string_view known);

/// Whether a text may be a misspelling of another: at most one letter put in, taken out, exchanged or swapped with the next, or two where
/// `typed` has more than four. Never for an empty text or for one of more than 60 letters.
/// @param typed,known  UTF-8
bool isLikeSpelling(std::string_view typed, std::string_view known);

} // namespace Kedrin::ModTool
