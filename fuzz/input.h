#pragma once

#include "memory_file.h"

#include <cstdint>
#include <string_view>

namespace fuzz {

using test_support::MemoryFile;

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return std::string_view(reinterpret_cast<const char*>(data), size);
}

/// Splits an input into two files: two bytes, low first, are the length of the first file; it follows, then
/// the second.
struct TwoFiles
{
    std::string_view first;
    std::string_view second;
};

inline TwoFiles splitInTwo(std::string_view input)
{
    if (input.size() < 2)
        return {};
    const auto low = static_cast<unsigned char>(input[0]);
    const auto high = static_cast<unsigned char>(input[1]);
    input.remove_prefix(2);
    const std::string_view first = input.substr(0, low + 256u * high);
    return {first, input.substr(first.size())};
}

} // namespace fuzz
