#pragma once

#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// Reads the verses of a SQLite database (doc/formats/sqlite.md) from the table with columns for chapter, verse and text.
/// Tags in the texts are handled by addMarkedText(). Positions and errors give the row of the table as the line.
/// @throws CBuildError
///     what CSqliteDatabase, CSqliteBooks and CLetterProof throw
///     "%s: contains no table of verses, with columns such as book, chapter, verse and text"
///     "%s: several tables contain verses: %s"
///     "%s:%u: %s is not a chapter number", the same with "verse"; "%s:%u: not valid UTF-8"
///     "%s:%u: a string longer than 1 MiB", "%s:%u: more than 1000000 rows", "%s: contains more than 64 MiB", "%s: contains no verses"
SourceBible readSqlite(const std::string& fileName);

/// The same for a database in memory.
/// @param fileName  for errors
SourceBible readSqlite(const std::string& fileName, const std::string& bytes);

} // namespace Kedrin::ModTool
