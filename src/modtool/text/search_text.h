#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A text to search for as a module would hold it: composed (NFC), in Windows-1251, with the replacements that a build
/// makes of characters which Windows-1251 lacks. Blanks stay as typed.
/// @throws CNotFound  "no module can contain \"%s\" (%s)": a character without likeness, and its name
std::string searchText(std::string_view utf8);

} // namespace Kedrin::ModTool
