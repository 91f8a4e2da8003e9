#include "tolvo_bible/text_scan.h"

#include "ut_utils.h"

#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(KEDRIN_PORTABLE_SCAN)
#include <emmintrin.h>
#endif

namespace Kedrin::Tolvo {

namespace {

constexpr char caseBit = 0x20;

bool isLetter(char byte)
{
    const char small = static_cast<char>(byte | caseBit);
    return ut::cyr_chrupcase(small) == static_cast<char>(small & ~caseBit);
}

// A block compares as many adjacent bytes with one byte as the processor can at a time. Its mask has one
// group of `bitsPerByte` bits for each byte of the block, the first in the lowest bits; a group is non-zero
// if the bytes are equal.
#if defined(__SSE2__) && !defined(KEDRIN_PORTABLE_SCAN)

class Block
{
public:
    using Mask = unsigned int;
    static constexpr std::ptrdiff_t byteCount = 16;
    static constexpr int bitsPerByte = 1;

    Block(char caseBits, char byte) : m_caseBits(_mm_set1_epi8(caseBits)), m_bytes(_mm_set1_epi8(byte)) {}

    __m128i equal(const char* position) const
    {
        const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(position));
        return _mm_cmpeq_epi8(_mm_or_si128(text, m_caseBits), m_bytes);
    }
    static __m128i both(__m128i a, __m128i b) { return _mm_and_si128(a, b); }
    static __m128i either(__m128i a, __m128i b) { return _mm_or_si128(a, b); }
    static Mask mask(__m128i equal) { return static_cast<Mask>(_mm_movemask_epi8(equal)); }

private:
    __m128i m_caseBits, m_bytes;
};

#else

class Block
{
    static_assert(std::endian::native == std::endian::little, "the first byte is in the lowest bits");

public:
    using Mask = std::uint64_t;
    static constexpr std::ptrdiff_t byteCount = 8;
    static constexpr int bitsPerByte = 8;

    Block(char caseBits, char byte) : m_caseBits(spread(caseBits)), m_bytes(spread(byte)) {}

    Mask equal(const char* position) const
    {
        Mask text;
        std::memcpy(&text, position, sizeof text);
        const Mask differing = (text | m_caseBits) ^ m_bytes;
        return ~(((differing & lowBits) + lowBits) | differing | lowBits); // 0x80 if a byte is zero
    }
    static Mask both(Mask a, Mask b) { return a & b; }
    static Mask either(Mask a, Mask b) { return a | b; }
    static Mask mask(Mask equal) { return equal; }

private:
    static constexpr Mask lowBits = 0x7F7F7F7F7F7F7F7Fu;
    static Mask spread(char byte) { return 0x0101010101010101u * static_cast<unsigned char>(byte); }

    Mask m_caseBits, m_bytes;
};

#endif

/// Compares the first and the last byte of a needle with the bytes at many positions.
class Probe
{
public:
    static constexpr std::ptrdiff_t blockCount = 4; ///< blocks per test
    static constexpr std::ptrdiff_t reach = blockCount * Block::byteCount;

    Probe(const Block& first, const Block& last, std::ptrdiff_t distance)
        : m_first(first),
          m_last(last),
          m_distance(distance)
    {}

    /// The positions of one block, starting at `position`, where both bytes match.
    auto candidates(const char* position) const
    {
        return Block::both(m_first.equal(position), m_last.equal(position + m_distance));
    }

    /// Whether any of the `reach` positions starting at `position` is a candidate.
    bool hasCandidate(const char* position) const
    {
        constexpr std::ptrdiff_t size = Block::byteCount;
        const auto front = Block::either(candidates(position), candidates(position + size));
        const auto back = Block::either(candidates(position + 2 * size), candidates(position + 3 * size));
        return Block::mask(Block::either(front, back)) != 0;
    }

private:
    Block m_first, m_last;
    std::ptrdiff_t m_distance;
};

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

bool CTextScan::matchesAt(const char* position) const
{
    for (std::size_t i = 0; i < m_bytes.size(); ++i)
        if (static_cast<char>(position[i] | m_caseBits[i]) != m_bytes[i])
            return false;
    return true;
}

const char* CTextScan::find(const char* begin, const char* end) const
{
    if (m_bytes.empty())
        return begin;
    const auto needleSize = static_cast<std::ptrdiff_t>(m_bytes.size());
    const Probe probe(Block(m_caseBits.front(), m_bytes.front()), Block(m_caseBits.back(), m_bytes.back()),
                      needleSize - 1);
    const auto findInBlocks = [&](const char* position, std::ptrdiff_t count) -> const char* {
        for (; count > 0; --count, position += Block::byteCount)
            for (auto mask = Block::mask(probe.candidates(position)); mask != 0; mask &= mask - 1) {
                const char* candidate = position + std::countr_zero(mask) / Block::bitsPerByte;
                if (matchesAt(candidate))
                    return candidate;
            }
        return nullptr;
    };

    const char* position = begin;
    std::ptrdiff_t positionsLeft = end - begin - needleSize + 1; // negative for a needle that is too long
    for (; positionsLeft >= Probe::reach; position += Probe::reach, positionsLeft -= Probe::reach)
        if (probe.hasCandidate(position))
            if (const char* hit = findInBlocks(position, Probe::blockCount))
                return hit;
    if (positionsLeft <= 0)
        return end;
    if (const char* hit = findInBlocks(position, positionsLeft / Block::byteCount))
        return hit;
    for (std::ptrdiff_t i = positionsLeft - positionsLeft % Block::byteCount; i < positionsLeft; ++i)
        if (matchesAt(position + i))
            return position + i;
    return end;
}

bool CScanAhead::isIn(std::string_view text, const char* bufferEnd, unsigned int bufferNum)
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
