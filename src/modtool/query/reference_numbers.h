#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Chapter and optional verse; from 1.
struct ReferencePoint
{
    unsigned int chapter = 0;
    std::optional<unsigned int> verse;
};

/// From a point to another or, with one point, just that.
struct ReferenceSpan
{
    ReferencePoint first;
    ReferencePoint last;
};

/// Understands the numbers after a book's name in a reference (see parseReferences()).
/// @param numbers  digits, and ":", "," and "-" between them
/// @returns nothing for what is none; else at least one span
std::optional<std::vector<ReferenceSpan>> parseReferenceNumbers(std::string_view numbers);

} // namespace Kedrin::ModTool
