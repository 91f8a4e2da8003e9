#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The text with characters in place of "&#1073;", "&#x431;" and the names of HTML 4, such as "&quot;" and "&laquo;".
/// A name that is not known stays as it is.
std::string withoutEntities(std::string_view utf8);

} // namespace Kedrin::ModTool
