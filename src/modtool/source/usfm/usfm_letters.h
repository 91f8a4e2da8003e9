#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The letter proof for a USFM text. This second pass ignores the meaning of markers: everything is text
/// except the markers with their star, the number after \c and \v and the code after \id.
/// @param taken  see CLetterProof
/// @throws CBuildError  what CLetterProof throws
/// @returns the letters and digits of the text
std::uint64_t proveUsfmLetters(const std::string& fileName, std::string_view utf8, std::string_view taken);

} // namespace Kedrin::ModTool
