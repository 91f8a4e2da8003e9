#include "input.h"
#include "walkers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // a thousand books at most; longer files only repeat what these do
    if (size > maxBytes)
        return 0;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    test_support::walkTitles(file.path());
    return 0;
}
