#include "allocation_watch.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

bool g_watching = false;
std::size_t g_largest = 0;
std::size_t g_total = 0;

void* allocate(std::size_t byteCount)
{
    if (g_watching) {
        g_largest = std::max(g_largest, byteCount);
        g_total += byteCount;
    }
    void* memory = std::malloc(std::max<std::size_t>(byteCount, 1));
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

void* operator new(std::size_t byteCount) { return allocate(byteCount); }
void* operator new[](std::size_t byteCount) { return allocate(byteCount); }
void* operator new(std::size_t byteCount, const std::nothrow_t&) noexcept
{
    try {
        return allocate(byteCount);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace test_support {

AllocationWatch::AllocationWatch()
{
    g_largest = g_total = 0;
    g_watching = true;
}

AllocationWatch::~AllocationWatch() { g_watching = false; }

std::size_t AllocationWatch::largest() const { return g_largest; }

std::size_t AllocationWatch::total() const { return g_total; }

} // namespace test_support
