#pragma once

#include "check_findings.h"
#include "checked_shape.h"

#include <string>

namespace Kedrin::ModTool {

/// Checks BibleTitles.txt and BibleStructure.csv, each by itself and against the other.
/// @throws CCheckError
CheckedShape checkBooks(const std::string& folder, CFindings& findings);

/// Checks _Info_.txt.
/// @throws CCheckError
void checkInfo(const std::string& folder, CFindings& findings);

} // namespace Kedrin::ModTool
