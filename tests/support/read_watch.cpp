#include "read_watch.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>

#include <sys/syscall.h>
#include <unistd.h>

namespace test_support {

namespace {

ReadWatch* g_watch = nullptr;

std::int64_t systemRead(int descriptor, void* buffer, std::size_t byteCount, std::int64_t byteOffset)
{
    return ::syscall(SYS_pread64, descriptor, buffer, byteCount, byteOffset);
}

} // namespace

ReadWatch::ReadWatch()
{
    if (g_watch != nullptr)
        throw std::logic_error("only one ReadWatch at a time");
    g_watch = this;
}

ReadWatch::~ReadWatch() { g_watch = nullptr; }

std::int64_t ReadWatch::read(int descriptor, void* buffer, std::size_t byteCount, std::int64_t byteOffset)
{
    std::int64_t got = -1;
    if (m_interrupts > 0) {
        --m_interrupts;
        errno = EINTR;
    } else if (m_broken) {
        errno = EIO;
    } else {
        got = systemRead(descriptor, buffer, std::min(byteCount, m_atMost), byteOffset);
    }
    m_reads.push_back({static_cast<std::uint64_t>(byteOffset), byteCount, got});
    return got;
}

} // namespace test_support

extern "C" ssize_t pread(int descriptor, void* buffer, size_t byteCount, off_t byteOffset)
{
    using test_support::g_watch;
    return g_watch != nullptr ? g_watch->read(descriptor, buffer, byteCount, byteOffset)
                              : test_support::systemRead(descriptor, buffer, byteCount, byteOffset);
}
