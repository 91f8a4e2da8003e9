#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads OpenSong XML (doc/formats/opensong.md): the text of the v elements, in books that are known by their name.
/// @param utf8  the file's content, without byte order mark
/// @throws CBuildError
///     what CXmlBible::read() throws
///     "%s:%u: a verse before any <b>"
///     "%s: contains no verses"
/// Its unknown books say "%s:%u: %s is not a known book name: write an English or Bulgarian one in n, such as Genesis".
SourceBible readOpenSong(const std::string& fileName, std::string_view utf8);

} // namespace Kedrin::ModTool
