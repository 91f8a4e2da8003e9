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
///     "%s:%u: %s is not a book code: write one in %s, such as GEN", for a book with verses
///     "%s: contains no verses"
SourceBible readCes(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
