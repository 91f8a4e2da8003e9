#include "input.h"
#include "walkers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // two hundred lines of the maximum length, thousands of short ones
    constexpr std::size_t maxBytes = 8192;
    if (size > maxBytes)
        return 0;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    test_support::walkWordList(file.path());
    return 0;
}
