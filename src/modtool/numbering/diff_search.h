#pragma once

#include "build_report.h"
#include "module_data.h"

#include <optional>
#include <vector>

namespace Kedrin::ModTool {

/// Chooses the records of _Diff_.txt with which as many verses as possible keep their place both ways.
///
/// The engine shifts only the second chapter of a book, all its verses alike, and compares a record's book number with
/// global numbers on the way to the common numbering and with local numbers on the way back. For each book the two
/// shifts are chosen together, books one after another, until no choice keeps more verses. A choice is taken
/// only when it keeps more; where nothing can be gained, there is no record.
/// @param figures  its `kept` and `keptWithout` are set
std::vector<DiffRecord> chooseDiffRecords(const std::vector<VersePair>& pairs, DiffFigures& figures);

/// The records that make the engine shift the second chapter of book `book` (from 0) by `toGlobal`, and by `toLocal`
/// the other way; chapter and verse offsets, {0, 0} for none. Nothing where the format cannot say both.
struct Shift
{
    int chapters = 0;
    int verses = 0;

    bool operator==(const Shift&) const = default;
    auto operator<=>(const Shift&) const = default; // NOLINT(modernize-use-nullptr)
};
std::optional<std::vector<DiffRecord>> recordsFor(unsigned int book, Shift toGlobal, Shift toLocal);

} // namespace Kedrin::ModTool
