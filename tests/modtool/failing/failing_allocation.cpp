#include "failing_allocation.h"

#include "sanitized.h"

#include <cerrno>
#include <cstddef>

namespace {

unsigned long g_count = 0;
unsigned long g_failing = 0;

#if !KEDRIN_ADDRESS_SANITIZER && defined(__GLIBC__)
constexpr bool isReplaced = true;

/// Whether the allocation that is asked for is to fail.
bool fails()
{
    if (++g_count != g_failing)
        return false;
    errno = ENOMEM;
    return true;
}
#else
constexpr bool isReplaced = false;
#endif

} // namespace

#if !KEDRIN_ADDRESS_SANITIZER && defined(__GLIBC__)
// The C library's functions under their other names: the names below replace those of the library for all of the program.
extern "C" {
void* __libc_malloc(std::size_t byteCount);
void* __libc_calloc(std::size_t count, std::size_t byteCount);
void* __libc_realloc(void* memory, std::size_t byteCount);

void* malloc(std::size_t byteCount) { return fails() ? nullptr : __libc_malloc(byteCount); }
void* calloc(std::size_t count, std::size_t byteCount)
{
    return fails() ? nullptr : __libc_calloc(count, byteCount);
}
void* realloc(void* memory, std::size_t byteCount)
{
    return fails() ? nullptr : __libc_realloc(memory, byteCount);
}
}
#endif

namespace failing_test {

bool canFailAllocations() { return isReplaced; }

void failAllocation(unsigned long number)
{
    g_count = 0;
    g_failing = number;
}

unsigned long allocationCount() { return g_count; }

} // namespace failing_test
