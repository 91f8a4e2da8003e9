#pragma once

#include <cstdint>
#include <vector>

namespace test_support {

/// Replaces pread(2) of the C library in the test program that links it: during the lifetime of an object it
/// records every read, and can simulate rare behaviour of the system. One object at a time, one thread.
class ReadWatch
{
public:
    struct Read
    {
        std::uint64_t byteOffset;
        std::uint64_t wanted; ///< requested bytes
        std::int64_t got;     ///< result of the call
    };

    ReadWatch();
    ~ReadWatch();
    ReadWatch(const ReadWatch&) = delete;
    ReadWatch& operator=(const ReadWatch&) = delete;

    /// Clears the recorded reads.
    void clear() { m_reads.clear(); }
    const std::vector<Read>& reads() const { return m_reads; }

    /// The next `count` reads fail with EINTR, as if interrupted by a signal.
    void interrupt(unsigned int count) { m_interrupts = count; }
    /// Limits every following read to `byteCount` bytes, as on a network file system.
    void giveAtMost(std::size_t byteCount) { m_atMost = byteCount; }
    /// Every following read fails with EIO, as from a defective disk.
    void breakDisk() { m_broken = true; }

    /// The implementation of pread(2) during the lifetime of this object.
    std::int64_t read(int descriptor, void* buffer, std::size_t byteCount, std::int64_t byteOffset);

private:
    std::vector<Read> m_reads;
    unsigned int m_interrupts = 0;
    std::size_t m_atMost = SIZE_MAX;
    bool m_broken = false;
};

} // namespace test_support
