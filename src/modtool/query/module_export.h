#pragma once

#include "module_reader.h"
#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// A module as a source from which `build` makes the same module again: its verses as plain text, empty ones too, its
/// titles and copyright. Where the differences of the module are those that a build chooses for one of the SWORD
/// library's versifications, that one is named; else the records themselves are given. The books' titles are given
/// where they are not the tool's own.
///
/// Of a module that `build` made, a build of this makes the same ten files, byte for byte. Of another one the markup of
/// the verses is lost, empty verses at the end of chapters go, and words are found by the tool's own rule.
/// @throws CModuleError  "%s: the book %s appears twice", "%s: %s is out of range for a source", and what CModuleReader throws
SourceBible exportModule(const CModuleReader& module);

} // namespace Kedrin::ModTool
