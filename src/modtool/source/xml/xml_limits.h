#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Refuses a text on which the library that parses XML would take time or memory out of proportion: it compares each
/// attribute of an element with all others, and keeps all comments and processing instructions up to the next element.
/// No file that is read here comes near these limits.
/// @param fileName  for messages
/// @throws CBuildError
///     "%s:%u: an element has more than 100 attributes"
///     "%s:%u: more than 100000 comments and processing instructions"
void checkXmlLimits(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
