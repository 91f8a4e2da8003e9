#pragma once

#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// A Bible as an OSIS file (doc/formats/osis.md), which readOsis() reads back unchanged: the verses, and in
/// the header the titles, the copyright and the numbering.
std::string osisFile(const SourceBible& bible);

} // namespace Kedrin::ModTool
