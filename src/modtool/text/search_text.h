#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A search text as a module would store it: composed (NFC), in Windows-1251, with characters that
/// Windows-1251 lacks replaced as a build replaces them. Spaces stay as typed.
/// @throws CNotFound  "no module can contain \"%s\" (%s)": the first character without a replacement
std::string searchText(std::string_view utf8);

} // namespace Kedrin::ModTool
