#pragma once

#include "reference_parser.h"

#include <functional>
#include <optional>
#include <vector>

namespace Kedrin::ModTool {

/// One position in the global numbering, in several modules.
struct AlignedRow
{
    GlobalPosition position;
    /// [module]: local reference; nothing if it has no such verse.
    std::vector<std::optional<Tolvo::CRef>> verses;
};

/// Verses of several modules by their position in the global numbering, range by range in its order. A position that a
/// module has more than once gives as many rows.
/// @param ranges  of the first module. For whole chapters, all verses of the other modules in those chapters
///               of the global numbering are included, even if the first module lacks them.
std::vector<AlignedRow> alignRanges(const std::vector<const CModuleReader*>& modules,
                                    const std::vector<VerseRange>& ranges);

/// All verses of two modules.
std::vector<AlignedRow> alignAll(const CModuleReader& first, const CModuleReader& second);

} // namespace Kedrin::ModTool
