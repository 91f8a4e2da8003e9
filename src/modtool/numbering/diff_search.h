#pragma once

#include "build_report.h"
#include "diff_effect.h"
#include "module_data.h"

#include <optional>
#include <vector>

namespace Kedrin::ModTool {

/// Chooses the records of _Diff_.txt with which as many verses as possible map correctly both ways.
///
/// For each book its two shifts (CNumberingShifts) are chosen together, books one after another, until no
/// choice maps more verses. A shift is chosen only if it maps more verses than none.
/// @param figures  its `roundTrips` and `roundTripsWithoutRecords` are set
std::vector<DiffRecord> chooseDiffRecords(const std::vector<VersePair>& pairs, DiffFigures& figures);

/// The records that make the engine shift the second chapter of book `book` (from 0) by `toGlobal`, and by
/// `toLocal` the other way; {0, 0} for none. Nothing if the format cannot express both.
std::optional<std::vector<DiffRecord>> recordsFor(unsigned int book, Shift toGlobal, Shift toLocal);

} // namespace Kedrin::ModTool
