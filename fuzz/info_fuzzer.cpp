#include "input.h"
#include "walkers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // sixteen lines of the maximum length
    if (size > maxBytes)
        return 0;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    test_support::walkInfo(file.path());
    return 0;
}
