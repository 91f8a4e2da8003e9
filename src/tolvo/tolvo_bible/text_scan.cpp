#include "tolvo_bible/text_scan.h"

#include "ut_utils.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace Kedrin::Tolvo {

namespace {

constexpr char caseBit = 0x20;

bool isLetter(char byte)
{
    const char small = static_cast<char>(byte | caseBit);
    return ut::cyr_chrupcase(small) == static_cast<char>(small & ~caseBit);
}

/// A needle: for each byte, 0x20 if its case is ignored, else 0, and the byte with that bit set.
struct Needle
{
    const char* caseBits;
    const char* bytes;
    std::ptrdiff_t size;
};

// What is "always_inline" becomes a part of the search for each kind of processor, so that the compiler uses its widest
// vectors for the loops.

[[gnu::always_inline]] inline bool matchesAt(const char* position, const Needle& needle)
{
    for (std::ptrdiff_t i = 0; i < needle.size; ++i)
        if (static_cast<char>(position[i] | needle.caseBits[i]) != needle.bytes[i])
            return false;
    return true;
}

/// Compares the first and the last byte of a needle with the bytes at many adjacent positions.
class Probe
{
public:
    static constexpr std::ptrdiff_t reach = 256;     ///< positions per test
    static constexpr std::ptrdiff_t blockReach = 32; ///< positions that are then looked at

    [[gnu::always_inline]] explicit Probe(const Needle& needle)
        : m_firstCase(needle.caseBits[0]),
          m_first(needle.bytes[0]),
          m_lastCase(needle.caseBits[needle.size - 1]),
          m_last(needle.bytes[needle.size - 1]),
          m_distance(needle.size - 1)
    {}

    /// Whether both bytes match at any of the `reach` positions starting at `position`.
    [[gnu::always_inline]] bool hasCandidate(const char* position) const
    {
        unsigned char any = 0;
        for (std::ptrdiff_t i = 0; i < reach; ++i)
            any |= isCandidate(position + i);
        return any != 0;
    }

    /// Sets 0x01 in the bytes of `words` that stand for positions where both bytes match.
    [[gnu::always_inline]] void findCandidates(const char* position,
                                               std::uint64_t (&words)[blockReach / 8]) const
    {
        unsigned char candidates[blockReach];
        for (std::ptrdiff_t i = 0; i < blockReach; ++i)
            candidates[i] = isCandidate(position + i);
        std::memcpy(words, candidates, sizeof words);
    }

private:
    [[gnu::always_inline]] unsigned char isCandidate(const char* position) const
    {
        const bool isFirst = static_cast<char>(position[0] | m_firstCase) == m_first;
        const bool isLast = static_cast<char>(position[m_distance] | m_lastCase) == m_last;
        return static_cast<unsigned char>(isFirst & isLast);
    }

    char m_firstCase, m_first, m_lastCase, m_last;
    std::ptrdiff_t m_distance;
};

/// The first match in the blocks starting at `position`; null if there is none.
[[gnu::always_inline]] inline const char* findInBlocks(const char* position, std::ptrdiff_t blockCount,
                                                       const Probe& probe, const Needle& needle)
{
    static_assert(std::endian::native == std::endian::little, "the first byte is in the lowest bits");
    for (; blockCount > 0; --blockCount, position += Probe::blockReach) {
        std::uint64_t words[Probe::blockReach / 8];
        probe.findCandidates(position, words);
        for (std::ptrdiff_t i = 0; i < Probe::blockReach / 8; ++i)
            for (std::uint64_t word = words[i]; word != 0; word &= word - 1)
                if (const char* candidate = position + 8 * i + std::countr_zero(word) / 8;
                    matchesAt(candidate, needle))
                    return candidate;
    }
    return nullptr;
}

[[gnu::always_inline]] inline const char* findIn(const char* begin, const char* end, const Needle& needle)
{
    const Probe probe(needle);
    const char* position = begin;
    std::ptrdiff_t positionsLeft = end - begin - needle.size + 1; // negative for a needle that is too long
    for (; positionsLeft >= Probe::reach; position += Probe::reach, positionsLeft -= Probe::reach)
        if (probe.hasCandidate(position))
            if (const char* hit = findInBlocks(position, Probe::reach / Probe::blockReach, probe, needle))
                return hit;
    if (positionsLeft <= 0)
        return end;
    if (const char* hit = findInBlocks(position, positionsLeft / Probe::blockReach, probe, needle))
        return hit;
    for (std::ptrdiff_t i = positionsLeft - positionsLeft % Probe::blockReach; i < positionsLeft; ++i)
        if (matchesAt(position + i, needle))
            return position + i;
    return end;
}

const char* findOnAny(const char* begin, const char* end, const Needle& needle)
{
    return findIn(begin, end, needle);
}

#if defined(__x86_64__) && !defined(KEDRIN_PORTABLE_SCAN)

[[gnu::target("avx2")]] const char* findWithAvx2(const char* begin, const char* end, const Needle& needle)
{
    return findIn(begin, end, needle);
}

bool hasAvx2() { return __builtin_cpu_supports("avx2"); }

#else

constexpr auto findWithAvx2 = findOnAny;
bool hasAvx2() { return false; }

#endif

} // namespace

CTextScan::CTextScan(std::string_view needle, Case letterCase)
{
    if (letterCase == Case::ignored)
        needle = needle.substr(0, needle.find('\0'));
    for (const char byte : needle) {
        m_caseBits.push_back(letterCase == Case::ignored && isLetter(byte) ? caseBit : '\0');
        m_bytes.push_back(static_cast<char>(byte | m_caseBits.back()));
    }
}

const char* CTextScan::find(const char* begin, const char* end) const
{
    static const auto findWidely = hasAvx2() ? findWithAvx2 : findOnAny;
    if (m_bytes.empty())
        return begin;
    return findWidely(begin, end,
                      {m_caseBits.data(), m_bytes.data(), static_cast<std::ptrdiff_t>(m_bytes.size())});
}

/// isIn() if nothing is known of the text in advance.
bool CScanAhead::scanFor(std::string_view text, const char* bufferEnd, unsigned int bufferNum)
{
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const bool sameBuffer = m_from != nullptr && bufferNum == m_bufferNum;
    const char* hit = nullptr;
    if (sameBuffer && begin < m_from) {
        hit = m_scan.find(begin, end); // out of order: keep what is known
    } else {
        if (!sameBuffer || begin > m_hit) {
            m_hit = m_scan.find(begin, bufferEnd);
            m_from = begin;
            m_bufferNum = bufferNum;
        }
        hit = m_hit;
    }
    if (hit > end || static_cast<std::size_t>(end - hit) < m_scan.needleSize())
        return false;
    return !m_endsAtZero || std::memchr(begin, '\0', static_cast<std::size_t>(hit - begin)) == nullptr;
}

} // namespace Kedrin::Tolvo
