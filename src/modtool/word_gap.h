#pragma once

#include <string_view>

namespace Kedrin::ModTool {

// Where a note goes, the words on either side of it may need a blank between them.

/// Whether a blank belongs before the text where it begins something new: it begins with a letter, a digit, an opening
/// bracket or quote.
bool beginsWord(std::string_view utf8);

/// Whether the text wants no blank after it: it ends with one, or with an opening bracket or quote, or is empty.
bool endsOpen(std::string_view utf8);

} // namespace Kedrin::ModTool
