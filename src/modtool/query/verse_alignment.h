#pragma once

#include "reference_parser.h"

#include <functional>
#include <optional>
#include <vector>

namespace Kedrin::ModTool {

/// One place of the common numbering in several modules.
struct AlignedRow
{
    CommonPlace place;
    /// [module]: local reference; nothing where it has no such verse.
    std::vector<std::optional<Tolvo::CRef>> verses;
};

/// Verses of several modules by their place in the common numbering, in its order. A place that a module has more than
/// once gives as many rows.
/// @param range  of the first module. Where it is whole chapters, the other modules give all they have in those
///               chapters of the common numbering, so that a verse they have beside the first module's is shown.
std::vector<AlignedRow> alignRange(const std::vector<const CModuleReader*>& modules, const VerseRange& range);

/// All verses of two modules.
std::vector<AlignedRow> alignAll(const CModuleReader& first, const CModuleReader& second);

} // namespace Kedrin::ModTool
