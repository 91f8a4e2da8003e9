#include "input.h"
#include "walkers.h"

// The first of the two files is the pointer file, the second the text file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 512; // every verse is read by every kind of cursor: quadratic time
    if (size > maxBytes)
        return 0;
    const fuzz::TwoFiles files = fuzz::splitInTwo(fuzz::textOf(data, size));
    const fuzz::MemoryFile point(files.first);
    const fuzz::MemoryFile text(files.second);
    test_support::walkText(text.path(), point.path());
    return 0;
}
