#pragma once

#include "build_report.h"
#include "diff_effect.h"
#include "module_data.h"

#include <optional>
#include <vector>

namespace Kedrin::ModTool {

/// Chooses the records of _Diff_.txt with which as many verses as possible keep their place both ways.
///
/// For each book its two shifts (CNumberingShifts) are chosen together, books one after another, until no
/// choice keeps more verses. A choice is taken only when it keeps more; where nothing can be gained, there is
/// no record.
/// @param figures  its `kept` and `keptWithout` are set
std::vector<DiffRecord> chooseDiffRecords(const std::vector<VersePair>& pairs, DiffFigures& figures);

/// The records that make the engine shift the second chapter of book `book` (from 0) by `toGlobal`, and by `toLocal`
/// the other way; {0, 0} for none. Nothing where the format cannot say both.
std::optional<std::vector<DiffRecord>> recordsFor(unsigned int book, Shift toGlobal, Shift toLocal);

} // namespace Kedrin::ModTool
