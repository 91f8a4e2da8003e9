#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Key that is equal for all spellings of a name: composed (NFC), case folded, only letters and digits, a
/// leading Roman numeral as digits. "1 Цар." and "I цар" give "1цар".
std::string nameKey(std::string_view utf8);

/// The general names of a book, independent of a module's titles: OSIS id, Bulgarian titles, English name and
/// the usual English and Bulgarian abbreviations. UTF-8.
std::vector<std::string> globalBookNames(unsigned int globalID);

/// The OSIS id of the only book with this name, ignoring case and punctuation; "" if there is none or there
/// are several.
std::string osisOfName(std::string_view utf8);

/// The same for a name that may be shortened to no less than three letters.
std::string osisOfShortName(std::string_view utf8);

} // namespace Kedrin::ModTool
