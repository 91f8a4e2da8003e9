#include "tolvo_bible/text_scan.h"

#include "ut_utils.h"

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

/// As many bytes as a processor compares at once.
template <std::size_t count>
struct Vector
{
    using Bytes [[gnu::vector_size(count)]] = unsigned char;
    static constexpr std::ptrdiff_t width = count;

    [[gnu::always_inline]] static bool isZero(const Bytes& bytes)
    {
        std::uint64_t words[count / sizeof(std::uint64_t)];
        std::memcpy(words, &bytes, count);
        std::uint64_t any = 0;
        for (const std::uint64_t word : words)
            any |= word;
        return any == 0;
    }
};

/// Compares one byte of a needle with the bytes at adjacent positions.
template <typename Vector>
class Probe
{
    using Bytes = typename Vector::Bytes;

public:
    [[gnu::always_inline]] Probe(const Needle& needle, std::ptrdiff_t index)
        : m_caseBits(Bytes{} + static_cast<unsigned char>(needle.caseBits[index])),
          m_byte(Bytes{} + static_cast<unsigned char>(needle.bytes[index])),
          m_index(index)
    {}

    /// Clears the marks of the positions where a needle that begins there has another byte.
    [[gnu::always_inline]] void narrow(const char* position, Bytes& marks) const
    {
        Bytes bytes;
        std::memcpy(&bytes, position + m_index, sizeof bytes);
        marks &= (bytes | m_caseBits) == m_byte;
    }

private:
    Bytes m_caseBits, m_byte;
    std::ptrdiff_t m_index;
};

constexpr unsigned char marked = 0xFF;

/// The first match at the `vectorCount` times Vector::width positions starting at `position`; null if there is none.
template <typename Vector, std::ptrdiff_t vectorCount>
[[gnu::always_inline]] inline const char* findAmong(const char* position, const Probe<Vector>& first,
                                                    const Probe<Vector>& last, const Needle& needle)
{
    typename Vector::Bytes marks[vectorCount];
    typename Vector::Bytes any = {};
    for (std::ptrdiff_t i = 0; i < vectorCount; ++i) {
        marks[i] = typename Vector::Bytes{} + marked;
        first.narrow(position + i * Vector::width, marks[i]);
        last.narrow(position + i * Vector::width, marks[i]);
        any |= marks[i];
    }
    if (Vector::isZero(any))
        return nullptr;
    const auto* const begin = reinterpret_cast<const unsigned char*>(marks);
    const auto* const end = begin + sizeof marks;
    for (const auto* mark = begin; mark != end; ++mark) {
        mark = static_cast<const unsigned char*>(
            std::memchr(mark, marked, static_cast<std::size_t>(end - mark)));
        if (mark == nullptr)
            return nullptr;
        if (matchesAt(position + (mark - begin), needle))
            return position + (mark - begin);
    }
    return nullptr;
}

template <typename Vector>
[[gnu::always_inline]] inline const char* findIn(const char* begin, const char* end, const Needle& needle)
{
    constexpr std::ptrdiff_t step = 256;
    const Probe<Vector> first(needle, 0);
    const Probe<Vector> last(needle, needle.size - 1);
    const char* position = begin;
    std::ptrdiff_t positionsLeft = end - begin - needle.size + 1; // negative for a needle that is too long
    for (; positionsLeft >= step; position += step, positionsLeft -= step)
        if (const char* hit = findAmong<Vector, step / Vector::width>(position, first, last, needle))
            return hit;
    for (; positionsLeft >= Vector::width; position += Vector::width, positionsLeft -= Vector::width)
        if (const char* hit = findAmong<Vector, 1>(position, first, last, needle))
            return hit;
    for (; positionsLeft > 0; ++position, --positionsLeft)
        if (matchesAt(position, needle))
            return position;
    return end;
}

const char* findOnAny(const char* begin, const char* end, const Needle& needle)
{
    return findIn<Vector<16>>(begin, end, needle);
}

#if defined(__x86_64__) && !defined(KEDRIN_PORTABLE_SCAN)

[[gnu::target("avx2")]] const char* findWithAvx2(const char* begin, const char* end, const Needle& needle)
{
    return findIn<Vector<32>>(begin, end, needle);
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
