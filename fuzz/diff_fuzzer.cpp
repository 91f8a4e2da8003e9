#include "input.h"
#include "walkers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // about two hundred records, ten times as many as in a module; lookups take linear time
    constexpr std::size_t maxBytes = 2048;
    if (size > maxBytes)
        return 0;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    test_support::walkDiff(file.path());
    return 0;
}
