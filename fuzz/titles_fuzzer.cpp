#include "input.h"
#include "walkers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // at most a thousand books; longer files reach no further code
    if (size > maxBytes)
        return 0;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    test_support::walkTitles(file.path());
    return 0;
}
