#pragma once

#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

// Each of these gives the content of a file that `build` reads back as it was: the verses, and in the file's header the
// titles, the copyright and the numbering.

std::string verseLinesFile(const SourceBible& bible); ///< doc/formats/verse-lines.md
std::string osisFile(const SourceBible& bible);       ///< doc/formats/osis.md

} // namespace Kedrin::ModTool
