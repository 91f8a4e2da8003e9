#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The proof of letters for a plain text. It reads the text again without records, headings or references: it
/// takes all letters of each line.
/// @param hasEntities  "&quot;" and similar entities are decoded
/// @param taken        see CLetterProof
/// @throws CBuildError  what CLetterProof throws
/// @returns the letters and digits of the text
std::uint64_t provePlainLetters(const std::string& fileName, std::string_view utf8, bool hasEntities,
                                std::string_view taken);

} // namespace Kedrin::ModTool
