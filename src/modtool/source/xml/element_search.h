#pragma once

#include <initializer_list>
#include <string_view>

namespace Kedrin::ModTool {

/// The first of the elements of these names in a document, which tells formats with the same root element apart. Only
/// tags are looked at: the document may be broken behind it.
/// @returns its name, as given; "" where there is none
std::string_view firstElementOf(std::string_view utf8, std::initializer_list<std::string_view> names);

} // namespace Kedrin::ModTool
