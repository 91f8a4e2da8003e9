#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The name of a document's first element, without its prefix; "" where the text is no XML as far as that. Reads no
/// further, so that a document that is broken later has a name too.
std::string rootElement(std::string_view utf8);

} // namespace Kedrin::ModTool
