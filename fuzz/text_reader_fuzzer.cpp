#include "input.h"
#include "walkers.h"

// Numbers and lines, the parts of all text files of a module.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // a hundred lines longer than the limits of the readers
    if (size > maxBytes)
        return 0;
    test_support::walkNumbersAndLines(std::string(fuzz::textOf(data, size)));
    return 0;
}
