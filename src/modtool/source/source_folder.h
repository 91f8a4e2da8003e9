#pragma once

#include "source_bible.h"
#include "source_format.h"

#include <string>

namespace Kedrin::ModTool {

/// Reads a folder. USFM and USX have one book per file: those with the format's extension or, if there are none, those
/// that begin as such files do, except hidden ones; in the order of their names, or in Protestant order if not all names
/// begin with a number. A folder with files of both is USFM; one with neither is JSON (readJsonFiles()), or else its
/// files of plain lines are read.
/// @throws CBuildError
///     what readText() and the formats' readers throw
///     "%s: is a folder; only USFM, USX, JSON and plain lines are read from folders"
///     "%s: contains no USFM or USX file (*.usfm, *.sfm, *.ptx, *.scp, *.usx)"
///     "%s: contains no file of plain lines"; "%s: --book is for a file of plain lines"
///     "%s: contains more than 64 MiB"
SourceBible readSourceFolder(const std::string& folder, const ReadOptions& options);

/// Reads a zip archive, in memory: its only file, of any format, or several like a folder's; a single XML file or
/// database among others that are not USFM, USX or JSON.
/// @throws CBuildError
///     what filesOfZip() and readSourceFolder() throw
///     "%s: contains no files"
///     "%s: contains several files; only USFM, USX, JSON and plain lines are read from more than one"
SourceBible readSourceArchive(const std::string& fileName, const ReadOptions& options);

} // namespace Kedrin::ModTool
