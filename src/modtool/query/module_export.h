#pragma once

#include "module_reader.h"
#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// A module as a source from which `build` makes the same module again: its verses as plain text, including
/// empty ones, its titles and copyright. If its difference records are those that a build chooses for one of
/// the SWORD library's versifications, that versification is named; otherwise the records themselves are
/// included. Book titles are included if they are not the tool's own.
///
/// For a module made by `build`, building from this gives the same ten files, byte for byte. For any other,
/// the markup of the verses and trailing empty verses of chapters are lost, and words are found by the tool's
/// own rule.
/// @throws CModuleError  "%s: the book %s appears twice", "%s: %s is out of range for a source", and what CModuleReader throws
SourceBible exportModule(const CModuleReader& module);

} // namespace Kedrin::ModTool
