#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace ut {

/// Unicode code points of the bytes 0x80..0xFF in Windows-1251. Byte 0x98 is unassigned and maps to U+FFFD.
/// The bytes below 0x80 are ASCII.
extern const std::array<char16_t, 128> cp1251HighHalf;

/// The Windows-1251 byte of a code point; nothing if it has none (for example U+0098 and U+FFFD).
std::optional<char> to_cp1251(char32_t codePoint);

/// The code point of a byte; U+FFFD for 0x98.
char16_t from_cp1251(char byte);

/// UTF-16 text as Windows-1251, '?' for every UTF-16 unit that has no byte.
std::string to_cp1251(std::u16string_view text);

/// All bytes of a text, zero bytes included, as UTF-16.
std::u16string from_cp1251(std::string_view text);

} // namespace ut
