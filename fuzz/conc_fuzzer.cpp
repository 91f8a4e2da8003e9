#include "input.h"
#include "walkers.h"

// The first of the two files is the index, the second has the entries. An odd last byte of the entries is
// removed: an entry that ends inside a record ends the program, as its contract says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // a thousand words of up to two thousand verses
    if (size > maxBytes)
        return 0;
    const fuzz::TwoFiles files = fuzz::splitInTwo(fuzz::textOf(data, size));
    const fuzz::MemoryFile point(files.first);
    const fuzz::MemoryFile conc(files.second.substr(0, files.second.size() / 2 * 2));
    test_support::walkConc(conc.path(), point.path());
    return 0;
}
