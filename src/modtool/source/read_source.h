#pragma once

#include "source_bible.h"
#include "source_format.h"

#include <string>

namespace Kedrin::ModTool {

/// Reads a file of any format, a folder (readSourceFolder()) or a zip archive (readSourceArchive()). Titles missing from
/// the source are taken from the file name.
/// @throws CBuildError
///     what readSingleFile(), readSourceFolder() and readSourceArchive() throw
///     the complaints of UnknownBook, a line each, for books with verses; unless skipUnknownBooks
SourceBible readSourceFile(const std::string& path, const ReadOptions& options);

} // namespace Kedrin::ModTool
