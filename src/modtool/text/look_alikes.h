#pragma once

#include <unicode/unistr.h>

#include <cstdint>

namespace Kedrin::ModTool {

/// What a Latin letter with an accent stands for inside a Cyrillic word, where keyboards lack the Cyrillic one: "ѐ" for
/// the è of "сè", "ё" for ë. Composed (NFC); empty for any other character, and in words that hold a Latin letter of
/// another kind ("caféто").
/// @param text   composed (NFC)
/// @param index  of a character in it
icu::UnicodeString cyrillicFor(const icu::UnicodeString& text, std::int32_t index);

/// Whether the character at `index` is a grave accent over a Cyrillic letter, which marks the stress.
/// @param text  composed (NFC)
bool isCyrillicStress(const icu::UnicodeString& text, std::int32_t index);

} // namespace Kedrin::ModTool
