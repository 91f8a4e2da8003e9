#pragma once

#include <cstddef>
#include <string_view>

namespace Kedrin::ModTool {

/// Where the attributes in a text before an end marker begin, at their '|'; npos where it has none. Attributes have names
/// and values in quotes, but markers that have one without a name ("w") take anything for it.
/// @param endMarker  its name; "" where none follows
std::size_t attributesBegin(std::string_view text, std::string_view endMarker);

} // namespace Kedrin::ModTool
