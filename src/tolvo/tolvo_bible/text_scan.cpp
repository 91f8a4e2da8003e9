#include "tolvo_bible/text_scan.h"

#include "ut_utils.h"

#include <algorithm>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace Kedrin::Tolvo {

// Inlined, so that it uses the vectors of the function that calls it.
template <class Ends>
[[gnu::always_inline]] inline const char* CTextScan::Window::fill(const Ends& ends, const char* position,
                                                                  const char* end)
{
    const char* const last = end - 64;
    while (position <= last && ends.marksAt(position) == 0)
        position += 64;
    const std::size_t wordCount = std::min(static_cast<std::size_t>(end - position) / 64, maxWords);
    m_begin = position;
    m_end = position + 64 * wordCount;
    m_marks.wordsInUse = m_zeros.wordsInUse = 0;
    for (std::size_t word = 0; word < wordCount; ++word) {
        m_marks.set(word, ends.marksAt(position + 64 * word));
        m_zeros.set(word, ends.zerosAt(position + 64 * word));
    }
    return position;
}

namespace {

constexpr char caseBit = 0x20;

bool isLetter(char byte)
{
    const char small = static_cast<char>(byte | caseBit);
    return ut::cyr_chrupcase(small) == static_cast<char>(small & ~caseBit);
}

/// The first and the last byte of a needle: the byte with its case bit set, and 0x20 if its case is ignored, else 0.
struct NeedleEnds
{
    char firstByte, firstCaseBit;
    char lastByte, lastCaseBit;
    std::ptrdiff_t lastIndex;
};

/// Compares 64 positions, with vectors of 16 bytes.
class Ends16
{
public:
    explicit Ends16(const NeedleEnds& ends)
        : m_firstByte(all(ends.firstByte)),
          m_firstCaseBit(all(ends.firstCaseBit)),
          m_lastByte(all(ends.lastByte)),
          m_lastCaseBit(all(ends.lastCaseBit)),
          m_lastIndex(ends.lastIndex)
    {}

    /// Bit i is set where both ends of the needle match at position + i.
    std::uint64_t marksAt(const char* position) const
    {
        return bitsOf([&](int i) {
            return ((bytesAt(position + i) | m_firstCaseBit) == m_firstByte) &
                   ((bytesAt(position + i + m_lastIndex) | m_lastCaseBit) == m_lastByte);
        });
    }

    /// Bit i is set where the byte at position + i is zero.
    std::uint64_t zerosAt(const char* position) const
    {
        return bitsOf([&](int i) { return bytesAt(position + i) == Bytes{}; });
    }

private:
    using Bytes [[gnu::vector_size(16)]] = unsigned char;
    using Words [[gnu::vector_size(16)]] = std::uint64_t;

    static Bytes all(char byte) { return Bytes{} + static_cast<unsigned char>(byte); }

    static Bytes bytesAt(const char* position)
    {
        Bytes bytes;
        std::memcpy(&bytes, position, sizeof bytes);
        return bytes;
    }

    /// One bit for each byte of the four vectors that vectorAt(0), vectorAt(16), ... give.
    template <class VectorAt>
    static std::uint64_t bitsOf(VectorAt vectorAt)
    {
        std::uint64_t bits = 0;
        for (int i = 48; i >= 0; i -= 16) {
            const auto words = reinterpret_cast<Words>(vectorAt(i));
            bits = bits << 16 | bitOfEach(words[1]) << 8 | bitOfEach(words[0]);
        }
        return bits;
    }

    /// One bit of each byte, moved together: the product's highest byte is the sum of all bytes.
    static std::uint64_t bitOfEach(std::uint64_t bytes)
    {
        return ((bytes & 0x8040201008040201) * 0x0101010101010101) >> 56;
    }

    Bytes m_firstByte, m_firstCaseBit, m_lastByte, m_lastCaseBit;
    std::ptrdiff_t m_lastIndex;
};

const char* fillWith16(CTextScan::Window& window, const NeedleEnds& ends, const char* position,
                       const char* end)
{
    return window.fill(Ends16(ends), position, end);
}

#if defined(__x86_64__) && !defined(KEDRIN_PORTABLE_SCAN)

/// The same with AVX2.
class Ends32
{
public:
    [[gnu::target("avx2")]] explicit Ends32(const NeedleEnds& ends)
        : m_firstByte(_mm256_set1_epi8(ends.firstByte)),
          m_firstCaseBit(_mm256_set1_epi8(ends.firstCaseBit)),
          m_lastByte(_mm256_set1_epi8(ends.lastByte)),
          m_lastCaseBit(_mm256_set1_epi8(ends.lastCaseBit)),
          m_lastIndex(ends.lastIndex)
    {}

    [[gnu::target("avx2")]] std::uint64_t marksAt(const char* position) const
    {
        return std::uint64_t(marksAt32(position + 32)) << 32 | marksAt32(position);
    }

    [[gnu::target("avx2")]] std::uint64_t zerosAt(const char* position) const
    {
        return std::uint64_t(zerosAt32(position + 32)) << 32 | zerosAt32(position);
    }

private:
    [[gnu::target("avx2")]] static __m256i bytesAt(const char* position)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(position));
    }
    [[gnu::target("avx2")]] static std::uint32_t bitsOf(__m256i bytes)
    {
        return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
    }
    [[gnu::target("avx2")]] std::uint32_t marksAt32(const char* position) const
    {
        const __m256i first = _mm256_or_si256(bytesAt(position), m_firstCaseBit);
        const __m256i last = _mm256_or_si256(bytesAt(position + m_lastIndex), m_lastCaseBit);
        return bitsOf(
            _mm256_and_si256(_mm256_cmpeq_epi8(first, m_firstByte), _mm256_cmpeq_epi8(last, m_lastByte)));
    }
    [[gnu::target("avx2")]] std::uint32_t zerosAt32(const char* position) const
    {
        return bitsOf(_mm256_cmpeq_epi8(bytesAt(position), _mm256_setzero_si256()));
    }

    __m256i m_firstByte, m_firstCaseBit, m_lastByte, m_lastCaseBit;
    std::ptrdiff_t m_lastIndex;
};

[[gnu::target("avx2")]] const char* fillWith32(CTextScan::Window& window, const NeedleEnds& ends,
                                               const char* position, const char* end)
{
    return window.fill(Ends32(ends), position, end);
}

bool hasAvx2() { return __builtin_cpu_supports("avx2"); }

#else

constexpr auto fillWith32 = fillWith16;
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

/// find() from a position that the window does not know.
const char* CTextScan::findBeyond(const char* begin, const char* end, Window& window) const
{
    static const auto fill = hasAvx2() ? fillWith32 : fillWith16;
    if (m_bytes.empty())
        return begin;
    const auto needleSize = static_cast<std::ptrdiff_t>(m_bytes.size());
    if (needleSize > end - begin)
        return end;
    const NeedleEnds ends{m_bytes.front(), m_caseBits.front(), m_bytes.back(), m_caseBits.back(),
                          needleSize - 1};
    const char* const positionsEnd = end - needleSize + 1;
    while (positionsEnd - begin >= 64) {
        begin = fill(window, ends, begin, positionsEnd);
        if (findIn(window, begin))
            return begin;
    }
    for (; begin < positionsEnd; ++begin)
        if (static_cast<char>(*begin | ends.firstCaseBit) == ends.firstByte &&
            static_cast<char>(begin[ends.lastIndex] | ends.lastCaseBit) == ends.lastByte &&
            middleMatchesAt(begin))
            return begin;
    return end;
}

} // namespace Kedrin::Tolvo
