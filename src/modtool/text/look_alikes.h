#pragma once

#include <unicode/unistr.h>

#include <cstdint>

namespace Kedrin::ModTool {

/// The Cyrillic letter that an accented Latin letter stands for inside a Cyrillic word, typed so because
/// keyboards lack the Cyrillic one: "ѐ" for the è of "сè", "ё" for ë. Composed (NFC); empty for any other
/// character, and in words with other Latin letters ("caféто").
/// @param text   composed (NFC)
/// @param index  of a character in it
icu::UnicodeString cyrillicFor(const icu::UnicodeString& text, std::int32_t index);

/// Whether the character at `index` is a grave accent over a Cyrillic letter, which marks the stress.
/// @param text  composed (NFC)
bool isCyrillicStress(const icu::UnicodeString& text, std::int32_t index);

} // namespace Kedrin::ModTool
