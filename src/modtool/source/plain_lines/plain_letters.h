#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The proof of letters for a plain text. This second way through it knows no records, headings or places: it takes all
/// letters of each line.
/// @param hasEntities  "&quot;" and the like stand for characters
/// @param taken        see CLetterProof
/// @throws CBuildError  what CLetterProof throws
/// @returns the letters and digits of the text
std::uint64_t provePlainLetters(const std::string& fileName, std::string_view utf8, bool hasEntities,
                                std::string_view taken);

} // namespace Kedrin::ModTool
