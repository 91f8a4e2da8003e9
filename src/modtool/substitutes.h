#pragma once

#include <optional>
#include <string>

namespace Kedrin::ModTool {

/// What stands for a character that Windows-1251 lacks, in Windows-1251; the rules, in this order:
///  1. the table of doc/kedrin-module.md (ѝ to и, æ to ae, dashes, quotes, blanks ...);
///  2. nothing, for control and format characters and for accents that stand alone;
///  3. its compatibility decomposition without accents, where that is Windows-1251 (é to e, ﬁ to fi);
///  4. "?".
std::string substituteFor(char32_t codePoint);

/// Whether the character is replaced without being asked for: ѝ and Ѝ, which Bulgarian cannot be written without.
bool isReplacedAlways(char32_t codePoint);

/// The name of a character, "LATIN SMALL LETTER AE"; "<control-0007>" and the like for those without.
std::string characterName(char32_t codePoint);

/// Whether the character is a letter.
bool isLetter(char32_t codePoint);

} // namespace Kedrin::ModTool
