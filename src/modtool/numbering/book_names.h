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

/// The OSIS id of the only book of the common numbering that is called so, in any case and with any punctuation;
/// "" where there is none or there are several.
std::string osisOfName(std::string_view utf8);

/// The same for a name that may be cut short, to three letters at least.
std::string osisOfShortName(std::string_view utf8);

} // namespace Kedrin::ModTool
