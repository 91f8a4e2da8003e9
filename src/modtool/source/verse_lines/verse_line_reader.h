#pragma once

#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// Reads a text with a verse a line: `BOOK<TAB>CHAPTER<TAB>VERSE<TAB>text`, valid UTF-8 without a byte order mark, lines
/// ended by LF or CR LF. BOOK is an OSIS id or another name of a book (see
/// CBookFinder); an id that is not known is that of an unknown
/// book. Books stand in the order of their first appearance, chapters and verses are
/// sorted. Empty lines are passed over. Lines before the first verse that begin with "#" are the header (see
/// CVerseLineHeader).
/// @throws CBuildError, naming file and line; before it, readText() refuses the file itself:
///     "%s: cannot be opened", "%s: is larger than 64 MiB", "%s: cannot be read", "%s:%u: not valid UTF-8"
///     "%s: contains no verses"
///     "%s:%u: a line must be BOOK, CHAPTER, VERSE and text, separated by tabs"
///     "%s:%u: \"%s\" is not an OSIS book id", with " (did you mean %s?)" where a name is like it
///     "%s:%u: \"%s\" is not a chapter number from 1 to 65534", the same with "verse number"
///     "%s:%u: book titles must be an id and three titles, separated by tabs"
///     "%s:%u: more than 1000 books"
///     "%s:%u: %s is given twice, first in line %u"
SourceBible readVerseLines(const std::string& fileName, std::string utf8);

} // namespace Kedrin::ModTool
