#pragma once

#include <unicode/unistr.h>

#include <optional>
#include <string>

namespace Kedrin::ModTool {

/// The replacement, in Windows-1251, of a character that Windows-1251 lacks; the rules, in this order:
///  1. the table of doc/kedrin-module.md (ѝ to и, æ to ae, dashes, quotes, spaces ...);
///  2. nothing, for control and format characters and for stand-alone accents;
///  3. its compatibility decomposition without accents, if Windows-1251 has it (é to e, ﬁ to fi);
///  4. "?".
std::string substituteFor(char32_t codePoint);

/// The same for each character that Windows-1251 lacks, the others as they are.
/// @param letter  a letter with its accents, composed (NFC)
std::string substituteFor(const icu::UnicodeString& letter);

/// Whether the character is replaced even without --substitute: ѝ, ѐ and their capitals. Bulgarian needs the
/// first, and the grave of both marks only the stress.
bool isReplacedAlways(char32_t codePoint);

/// Whether only a grave accent of the letter is lost.
/// @param letter  Cyrillic, with its accents, composed (NFC)
bool isReplacedAlways(const icu::UnicodeString& letter);

/// The name of a character, "LATIN SMALL LETTER AE"; "<control-0007>" and the like for unnamed ones.
std::string characterName(char32_t codePoint);

/// The code point and the name, as a list of characters shows them: "U+00E6 LATIN SMALL LETTER AE".
std::string describeCharacter(char32_t codePoint);

/// Whether the character is a letter.
bool isLetter(char32_t codePoint);

} // namespace Kedrin::ModTool
