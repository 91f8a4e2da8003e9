#pragma once

#include <cstdint>
#include <vector>

namespace test_support {

/// Stands in the way of pread(2) for the whole test program, in which it is linked in place of the C library's,
/// while an object of the class lives: notes every read, and can make the system behave as it rarely does.
/// One object at a time, one thread.
class ReadWatch
{
public:
    struct Read
    {
        std::uint64_t byteOffset;
        std::uint64_t wanted; ///< bytes asked for
        std::int64_t got;     ///< what the call returned
    };

    ReadWatch();
    ~ReadWatch();
    ReadWatch(const ReadWatch&) = delete;
    ReadWatch& operator=(const ReadWatch&) = delete;

    /// Forgets the reads noted so far.
    void clear() { m_reads.clear(); }
    const std::vector<Read>& reads() const { return m_reads; }

    /// The next `count` reads fail with EINTR, as when a signal comes.
    void interrupt(unsigned int count) { m_interrupts = count; }
    /// No read gives more than `byteCount` bytes from now on, as over a network.
    void giveAtMost(std::size_t byteCount) { m_atMost = byteCount; }
    /// Every read fails with EIO from now on, as from a broken disk.
    void breakDisk() { m_broken = true; }

    /// What pread(2) does while this object lives.
    std::int64_t read(int descriptor, void* buffer, std::size_t byteCount, std::int64_t byteOffset);

private:
    std::vector<Read> m_reads;
    unsigned int m_interrupts = 0;
    std::size_t m_atMost = SIZE_MAX;
    bool m_broken = false;
};

} // namespace test_support
