#include "input.h"
#include "walkers.h"

// The first byte minus '0' is the number of books to read; the file begins after it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxBytes = 4096; // thousands of numbers; longer files reach no further code
    if (size == 0 || size > maxBytes)
        return 0;
    const fuzz::MemoryFile file(fuzz::textOf(data, size).substr(1));
    test_support::walkStructure(file.path(), static_cast<unsigned char>(data[0] - '0'));
    return 0;
}
