#pragma once

#include <unicode/unistr.h>

#include <optional>
#include <string>

namespace Kedrin::ModTool {

/// What stands for a character that Windows-1251 lacks, in Windows-1251; the rules, in this order:
///  1. the table of doc/kedrin-module.md (ѝ to и, æ to ae, dashes, quotes, blanks ...);
///  2. nothing, for control and format characters and for accents that stand alone;
///  3. its compatibility decomposition without accents, where that is Windows-1251 (é to e, ﬁ to fi);
///  4. "?".
std::string substituteFor(char32_t codePoint);

/// The same for each character that Windows-1251 lacks, the others as they are.
/// @param letter  a letter with its accents, composed (NFC)
std::string substituteFor(const icu::UnicodeString& letter);

/// Whether the character is replaced without being asked for: ѝ, ѐ and their capitals. Bulgarian cannot be written
/// without the first, and the grave of both marks nothing but the stress.
bool isReplacedAlways(char32_t codePoint);

/// Whether nothing of the letter but a grave accent is lost.
/// @param letter  Cyrillic, with its accents, composed (NFC)
bool isReplacedAlways(const icu::UnicodeString& letter);

/// The name of a character, "LATIN SMALL LETTER AE"; "<control-0007>" and the like for those without.
std::string characterName(char32_t codePoint);

/// The code point and the name, as a list of characters shows them: "U+00E6 LATIN SMALL LETTER AE".
std::string describeCharacter(char32_t codePoint);

/// Whether the character is a letter.
bool isLetter(char32_t codePoint);

} // namespace Kedrin::ModTool
