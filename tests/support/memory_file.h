#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

namespace test_support {

/// A regular file in memory, with a path by which a reader can open it; it is deleted with the object. For
/// tests that create thousands of files, and for the fuzzers.
class MemoryFile
{
public:
    explicit MemoryFile(std::string_view bytes) : m_descriptor(::memfd_create("kedrin-test", MFD_CLOEXEC))
    {
        const auto written = m_descriptor < 0 ? -1 : ::write(m_descriptor, bytes.data(), bytes.size());
        if (written != static_cast<ssize_t>(bytes.size()))
            throw std::runtime_error("cannot make a file in memory");
    }
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

    /// Truncates the file while it is open elsewhere.
    void shrinkTo(std::size_t byteCount) const
    {
        if (::ftruncate(m_descriptor, static_cast<off_t>(byteCount)) != 0)
            throw std::runtime_error("cannot cut a file in memory");
    }

private:
    int m_descriptor;
};

} // namespace test_support
