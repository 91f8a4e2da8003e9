#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Whether a text that is not USFM may hold markers of it.
inline bool mayHaveMarkers(std::string_view text) { return text.find('\\') != std::string_view::npos; }

/// The text without markers of USFM that a conversion left in it ("\nd Lord\+nd*"): what they mark stays, and a blank
/// stands where one did not mark characters ("\q1"). Only known markers go, and only where one may stand: followed by
/// a star, a blank, another marker or the end of the text, with no other backslash before them in the same word.
/// @param count  rises by one for each marker that goes
std::string withoutMarkers(std::string_view text, unsigned int& count);

} // namespace Kedrin::ModTool
