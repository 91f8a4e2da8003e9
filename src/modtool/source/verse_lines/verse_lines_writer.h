#pragma once

#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// A Bible as a file of verse lines (doc/formats/verse-lines.md), which readVerseLines() reads back
/// unchanged: the verses, and in the header the titles, the copyright and the numbering.
std::string verseLinesFile(const SourceBible& bible);

} // namespace Kedrin::ModTool
