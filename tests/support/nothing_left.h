#pragma once

#include "forked.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstddef>
#include <functional>

namespace test_support {

/// Runs the operation a hundred times, and expects that this leaves no descriptors and no memory.
inline void expectNothingLeftBy(const std::function<void()>& operation)
{
    for (int i = 0; i < 3; ++i) // the first calls of library functions allocate memory that stays
        operation();
    constexpr std::size_t times = 100;
    // of the heap; the memory that the library keeps for reuse varies slightly
    constexpr std::size_t smallestBlock = 32;
    const int descriptors = openDescriptors();
    const std::size_t bytes = ::mallinfo2().uordblks;
    for (std::size_t i = 0; i < times; ++i)
        operation();
    EXPECT_LT(::mallinfo2().uordblks, bytes + times * smallestBlock);
    EXPECT_EQ(openDescriptors(), descriptors);
}

} // namespace test_support
