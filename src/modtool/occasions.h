#pragma once

#include <cstdint>
#include <string>

namespace Kedrin::ModTool {

/// Something that happened at several places of a source.
struct Occasions
{
    std::uint64_t count = 0;
    std::string firstPlace; ///< "Gen 1:1"; "" while the count is 0

    void add(const std::string& place)
    {
        if (count++ == 0)
            firstPlace = place;
    }
};

} // namespace Kedrin::ModTool
