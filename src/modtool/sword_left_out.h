#pragma once

#include "source_findings.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Counts what of a raw SWORD entry does not come into the verses: markers of USFM in the text, notes, headings, other readings, and the text that
/// stands in an introduction or behind the end of a book.
/// @param isIntroduction  the entry belongs to the whole, to a book or to a chapter
void countLeftOut(std::string_view raw, bool isIntroduction, const std::string& place,
                  SourceFindings& findings);

} // namespace Kedrin::ModTool
