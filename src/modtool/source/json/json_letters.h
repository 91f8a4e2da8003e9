#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The letter proof of a JSON text. This second pass knows nothing of the structure: all strings are text, tags
/// included; keys, and numbers outside strings, are not.
/// @param taken  see CLetterProof
/// @throws CBuildError  what CLetterProof throws
/// @returns the letters and digits of the text
std::uint64_t proveJsonLetters(const std::string& fileName, std::string_view utf8, std::string_view taken);

} // namespace Kedrin::ModTool
