#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads OSIS XML (doc/formats/osis.md): the text of the verses, whether they are written as elements or
/// between milestones. Notes, headings, variant readings and lexical markup are left out; added words, names,
/// poetry and the words of Christ are kept as plain text.
/// @param utf8  the file's content, without byte order mark
/// @throws CBuildError
///     what CXmlReader throws
///     "%s:%u: the root element is %s, not osis"
///     "%s:%u: %s is not a verse reference, such as Gen.1.1", before any book
///     "%s: contains no verses"
SourceBible readOsis(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
