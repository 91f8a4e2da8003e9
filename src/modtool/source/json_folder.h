#pragma once

#include "source_bible.h"
#include "source_files.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Whether there are files with the extension .json or .js.
bool hasJsonFiles(const std::vector<CSourceFile>& files);

/// Reads JSON files: those named after a book, or else all. They are read in the order of the numbers at the start of
/// their names; if not all have one, the books are put in Protestant order.
/// @param source  a folder or archive, for errors
/// @throws CBuildError
///     what readText() and CJsonReader throw
///     "%s: contains no JSON file (*.json, *.js)", "%s: contains more than 64 MiB"
SourceBible readJsonFiles(const std::string& source, const std::vector<CSourceFile>& files,
                          const std::string& encoding);

} // namespace Kedrin::ModTool
