#include "tolvo_bible/text_scan.h"

#include "ut_utils.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

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

bool matchesAt(const char* position, const Needle& needle)
{
    for (std::ptrdiff_t i = 0; i < needle.size; ++i)
        if (static_cast<char>(position[i] | needle.caseBits[i]) != needle.bytes[i])
            return false;
    return true;
}

constexpr std::ptrdiff_t windowSize = 64;

/// Marks the positions of the next window in which a needle may begin, those where its first and its last byte match;
/// the window begins at `end` if there is none. Only whole windows are examined.
CTextScan::Window markWith16(const char* position, const char* end, const Needle& needle)
{
    using Bytes [[gnu::vector_size(16)]] = unsigned char;
    using Words [[gnu::vector_size(16)]] = std::uint64_t;
    struct Probe
    {
        Bytes caseBits, byte;
        std::ptrdiff_t index;

        Probe(const Needle& needle, std::ptrdiff_t i)
            : caseBits(Bytes{} + static_cast<unsigned char>(needle.caseBits[i])),
              byte(Bytes{} + static_cast<unsigned char>(needle.bytes[i])),
              index(i)
        {}
        Bytes matches(const char* position) const
        {
            Bytes bytes;
            std::memcpy(&bytes, position + index, sizeof bytes);
            return (bytes | caseBits) == byte;
        }
    };
    // One bit of each byte, moved together: the product's highest byte is the sum of all bytes.
    const auto bitOfEach = [](std::uint64_t bytes) {
        return ((bytes & 0x8040201008040201) * 0x0101010101010101) >> 56;
    };
    const Probe first(needle, 0);
    const Probe last(needle, needle.size - 1);
    for (; end - position >= windowSize; position += windowSize) {
        Words marks[windowSize / 16];
        Words any = {};
        for (int i = 0; i < windowSize / 16; ++i) {
            marks[i] =
                reinterpret_cast<Words>(first.matches(position + 16 * i) & last.matches(position + 16 * i));
            any |= marks[i];
        }
        if ((any[0] | any[1]) == 0)
            continue;
        std::uint64_t bits = 0;
        for (int i = windowSize / 8 - 1; i >= 0; --i)
            bits = bits << 8 | bitOfEach(marks[i / 2][i % 2]);
        return {position, bits};
    }
    return {position, 0};
}

#if defined(__x86_64__) && !defined(KEDRIN_PORTABLE_SCAN)

/// The same with AVX2.
[[gnu::target("avx2")]] CTextScan::Window markWith32(const char* position, const char* end,
                                                     const Needle& needle)
{
    const __m256i firstCase = _mm256_set1_epi8(needle.caseBits[0]);
    const __m256i firstByte = _mm256_set1_epi8(needle.bytes[0]);
    const __m256i lastCase = _mm256_set1_epi8(needle.caseBits[needle.size - 1]);
    const __m256i lastByte = _mm256_set1_epi8(needle.bytes[needle.size - 1]);
    for (; end - position >= windowSize; position += windowSize) {
        std::uint64_t bits = 0;
        for (int i = 1; i >= 0; --i) {
            const char* const half = position + 32 * i;
            const __m256i atFirst = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(half));
            const __m256i atLast =
                _mm256_loadu_si256(reinterpret_cast<const __m256i*>(half + needle.size - 1));
            const __m256i matches =
                _mm256_and_si256(_mm256_cmpeq_epi8(_mm256_or_si256(atFirst, firstCase), firstByte),
                                 _mm256_cmpeq_epi8(_mm256_or_si256(atLast, lastCase), lastByte));
            bits = bits << 32 | static_cast<std::uint32_t>(_mm256_movemask_epi8(matches));
        }
        if (bits != 0)
            return {position, bits};
    }
    return {position, 0};
}

bool hasAvx2() { return __builtin_cpu_supports("avx2"); }

#else

constexpr auto markWith32 = markWith16;
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

const char* CTextScan::find(const char* begin, const char* end, Window& window) const
{
    static const auto markNext = hasAvx2() ? markWith32 : markWith16;
    if (m_bytes.empty())
        return begin;
    const Needle needle{m_caseBits.data(), m_bytes.data(), static_cast<std::ptrdiff_t>(m_bytes.size())};
    const char* const positionsEnd = end - needle.size + 1;
    if (needle.size > end - begin)
        return end;
    if (begin < window.begin || begin - window.begin >= windowSize)
        window = markNext(begin, positionsEnd, needle);
    else
        window.marks &= ~std::uint64_t(0) << (begin - window.begin);
    while (positionsEnd - window.begin >= windowSize) {
        for (; window.marks != 0; window.marks &= window.marks - 1) {
            const char* const position = window.begin + std::countr_zero(window.marks);
            if (matchesAt(position, needle))
                return position;
        }
        window = markNext(window.begin + windowSize, positionsEnd, needle);
    }
    for (const char* position = std::max(begin, window.begin); position < positionsEnd; ++position)
        if (matchesAt(position, needle))
            return position;
    return end;
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
        if (!sameBuffer)
            m_window = {};
        if (!sameBuffer || begin > m_hit) {
            m_hit = m_scan.find(begin, bufferEnd, m_window);
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
