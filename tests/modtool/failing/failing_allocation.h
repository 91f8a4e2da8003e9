#pragma once

namespace failing_test {

/// Whether malloc() and its relatives can be made to fail: not under a sanitizer, which has its own.
bool canFailAllocations();

/// The n-th allocation from now on fails, for all libraries; 0: none does.
void failAllocation(unsigned long number);

/// Allocations since failAllocation().
unsigned long allocationCount();

} // namespace failing_test
