#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads Beblia XML (doc/formats/beblia.md): the text of the verse elements, in books that are known by their number.
/// @param utf8  the file's content, without byte order mark
/// @throws CBuildError
///     what CXmlBible::read() throws
///     "%s:%u: a verse before any <book>"
///     "%s: contains no verses"
/// Its unknown books say "%s:%u: %s is not a book number: write one in number, such as 1 for Genesis".
SourceBible readBeblia(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
