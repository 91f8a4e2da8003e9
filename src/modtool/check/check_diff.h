#pragma once

#include "check_books.h"
#include "check_findings.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Kedrin::ModTool {

/// Checks _Diff_.txt, and which verses keep their place on the way to the common numbering and back.
/// @returns how many verses keep it; nothing when that cannot be told
/// @throws CCheckError
std::optional<std::uint64_t> checkDiff(const std::string& folder, const CheckedShape& shape,
                                       CFindings& findings);

} // namespace Kedrin::ModTool
