#pragma once

#include "check_books.h"
#include "check_findings.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Kedrin::ModTool {

/// Checks _Diff_.txt, and which verses map to the global numbering and back.
/// @returns how many verses do; nothing if that cannot be determined
/// @throws CCheckError
std::optional<std::uint64_t> checkDiff(const std::string& folder, const CheckedShape& shape,
                                       CFindings& findings);

} // namespace Kedrin::ModTool
