#pragma once

#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// Whether a folder has files with the extension .json or .js.
bool hasJsonFiles(const std::string& folder);

/// Reads a folder of JSON files: those named after a book, or else all. They are read in the order of the numbers at
/// the start of their names; if not all have one, the books are put in Protestant order.
/// @throws CBuildError
///     what readText() and CJsonReader throw
///     "%s: contains no JSON file (*.json, *.js)", "%s: contains more than 64 MiB"
SourceBible readJsonFolder(const std::string& folder, const std::string& encoding);

} // namespace Kedrin::ModTool
