#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads USFX (doc/formats/usfx.md): elements mean what the markers of their names do in USFM.
/// @param utf8  the file's content, without byte order mark
/// @throws CBuildError
///     what CXmlBible::read() throws
///     "%s:%u: a verse before any <book>"
///     "%s: contains no verses"
/// Its unknown books say "%s:%u: %s is not a book code: write one in id, such as GEN".
SourceBible readUsfx(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
