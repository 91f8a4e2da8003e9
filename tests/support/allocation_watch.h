#pragma once

#include <cstddef>

namespace test_support {

/// Measures what `operator new` gives out while an object of the class lives; linked into a test program, it
/// replaces the library's. One object at a time, one thread.
class AllocationWatch
{
public:
    AllocationWatch();
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    std::size_t largest() const; ///< bytes of the largest single allocation
    std::size_t total() const;   ///< bytes of all allocations together, freed or not
};

} // namespace test_support
