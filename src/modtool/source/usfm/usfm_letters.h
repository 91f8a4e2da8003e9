#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The proof of letters for a USFM text. This second way through it knows no marker's meaning: all is text but the
/// markers with their star, the number behind \c and \v and the code behind \id.
/// @param taken  see CLetterProof
/// @throws CBuildError  what CLetterProof throws
/// @returns the letters and digits of the text
std::uint64_t proveUsfmLetters(const std::string& fileName, std::string_view utf8, std::string_view taken);

} // namespace Kedrin::ModTool
