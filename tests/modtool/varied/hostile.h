#pragma once

#include "varied_formats.h"

#include <array>
#include <map>

namespace varied_test {

/// What became of the hostile sources of a format.
struct HostileCounts
{
    unsigned int inputs = 0;
    unsigned int built = 0;
    unsigned int refused = 0;   ///< with a message that the documentation has
    unsigned int failed = 0;    ///< ended otherwise; each is reported on standard error
    std::size_t mostBytes = 0;  ///< of a source
    double longestSeconds = 0;  ///< of processor time
    std::size_t mostMemory = 0; ///< bytes of a process that built a batch
};

struct HostileOptions
{
    unsigned int inputs; ///< of each format
    unsigned int first;  ///< the seed of the first one
    std::string keep;    ///< a folder for sources that failed; "": they are not kept
};

/// Builds modules of damaged sources, in processes with a gigabyte of address space and thirty seconds of processor time
/// for each source.
HostileCounts buildHostile(const Format& format, const HostileOptions& options);

} // namespace varied_test
