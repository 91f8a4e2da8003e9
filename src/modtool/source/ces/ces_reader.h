#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads CES XML (doc/formats/ces.md): the verse segments of books and chapters, which are identified by their ids.
/// @param utf8  the file's content, without byte order mark
/// @throws CBuildError
///     what CXmlBible::read() throws
///     "%s:%u: a verse before any <div type="book">"
///     "%s: contains no verses"
/// Its unknown books say "%s:%u: %s is not a book code: write one in id, such as GEN".
SourceBible readCes(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
