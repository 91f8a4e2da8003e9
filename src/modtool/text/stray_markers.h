#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Whether a text that is not USFM may contain USFM markers.
inline bool mayHaveMarkers(std::string_view text) { return text.find('\\') != std::string_view::npos; }

/// The text without USFM markers left in it by a conversion ("\nd Lord\+nd*"). The marked text stays; a
/// marker that is not a character style ("\q1") becomes a space. Only known markers are removed, and only if
/// followed by a star, a space, another marker or the end of the text, with no other backslash before them in
/// the same word.
/// @param count  incremented for each marker removed
std::string withoutMarkers(std::string_view text, unsigned int& count);

} // namespace Kedrin::ModTool
