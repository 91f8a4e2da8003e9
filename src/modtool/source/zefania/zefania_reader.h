#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads Zefania XML (doc/formats/zefania.md): the text of the VERS elements, without notes, cross
/// references, captions and lexical markup. Names of elements and attributes are case-insensitive.
/// @param utf8  the file's content, without byte order mark
/// @throws CBuildError
///     what CXmlReader throws
///     "%s:%u: the root element is %s, not XMLBIBLE"
///     "%s:%u: a verse before any BIBLEBOOK"
///     "%s: contains no verses"
/// Its unknown books say "%s:%u: %s is not a book number, and %s is not a known book name: write the number in bnumber,
/// such as 1 for Genesis".
SourceBible readZefania(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
