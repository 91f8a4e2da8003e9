#pragma once

#include <cstddef>

namespace test_support {

/// Measures the allocations by `operator new` during the lifetime of an object; linked into a test program,
/// it replaces the library's operator. One object at a time, one thread.
class AllocationWatch
{
public:
    AllocationWatch();
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    std::size_t largest() const; ///< bytes of the largest single allocation
    std::size_t total() const;   ///< total bytes of all allocations, freed or not
};

} // namespace test_support
