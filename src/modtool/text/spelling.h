#pragma once

#include <string_view>

namespace Kedrin::ModTool {

/// Whether a text may be a misspelling of another: at most one letter put in, taken out or exchanged, or two where
/// `typed` has more than four. Never for an empty text or for one of more than 60 letters.
/// @param typed,known  UTF-8
bool isLikeSpelling(std::string_view typed, std::string_view known);

} // namespace Kedrin::ModTool
