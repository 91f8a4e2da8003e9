#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// What two spellings of a name have in common: composed (NFC), case folded, nothing but letters and digits left, and
/// a Roman number in front as digits. "1 Цар." and "I цар" give "1цар".
std::string nameKey(std::string_view utf8);

/// The names by which a book of the common numbering is known besides a module's own titles: its OSIS id, the common
/// Bulgarian titles, the English name and the usual English and Bulgarian abbreviations. UTF-8.
std::vector<std::string> commonBookNames(unsigned int globalID);

} // namespace Kedrin::ModTool
