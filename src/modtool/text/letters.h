#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Letters and digits, Unicode's general categories L* and N*: what a build accounts for. Spaces, punctuation
/// and combining marks are not counted. The argument is valid UTF-8.
std::uint64_t countLetters(std::string_view utf8);

/// The same for Windows-1251.
std::uint64_t countLettersOf1251(std::string_view cp1251);

/// Appends the letters and digits of `utf8` to `out` and skips the rest.
/// @returns how many
std::uint64_t appendLetters(std::string_view utf8, std::string& out);

/// Whether the character is a letter or a digit.
bool isLetterOrDigit(char32_t codePoint);

} // namespace Kedrin::ModTool
