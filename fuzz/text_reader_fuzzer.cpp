#include "input.h"
#include "walkers.h"

// Numbers and lines, which all text files of a module are read by.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // a hundred lines beyond the bounds that readers set
    if (size > maxBytes)
        return 0;
    test_support::walkNumbersAndLines(std::string(fuzz::textOf(data, size)));
    return 0;
}
