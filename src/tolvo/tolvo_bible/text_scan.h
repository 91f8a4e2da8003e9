#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::Tolvo {

/// Finds one text, the needle, in any number of others: ut::cyr_stristr and std::string::find for long
/// haystacks. It compares the needle's first and last byte at many positions at once, with the widest vectors that the
/// processor has, and the bytes between only where both match. Only the constructor throws (std::bad_alloc).
///
///     const CTextScan scan("бог", CTextScan::Case::ignored);   // in Windows-1251
///     const char* hit = scan.find(begin, end);                 // end: no hit
///
/// Case is folded as ut::cyr_chrupcase folds it. Both folded ranges differ from their capitals only in bit 0x20;
/// OR-ing it folds case without false matches.
class CTextScan
{
public:
    enum class Case
    {
        ignored, ///< the needle ends at its first zero byte, like a C string
        exact    ///< byte by byte; a zero byte is an ordinary character
    };

    CTextScan(std::string_view needle, Case letterCase);

    std::size_t needleSize() const { return m_bytes.size(); }

    /// The first occurrence of the whole needle in [begin, end); `end` if there is none. An empty needle is
    /// found at `begin`. Reads nothing outside the range. A zero byte in the haystack is an ordinary byte.
    const char* find(const char* begin, const char* end) const
    {
        Window window;
        return find(begin, end, window);
    }

    /// What a search knows of the positions from begin() to end(), at which the bytes of the haystack must not change.
    class Window
    {
    public:
        const char* begin() const { return m_begin; }
        const char* end() const { return m_end; }
        bool contains(const char* position) const { return position >= m_begin && position < m_end; }

        /// The next position from this one on, which is in the window, where the needle's first and last byte match; end()
        /// if there is none.
        const char* nextMark(const char* position) const { return next(m_marks, position); }

        /// The same for zero bytes.
        const char* nextZero(const char* position) const { return next(m_zeros, position); }

        /// Makes the window begin at the first 64 positions with a mark, from `position` on, and end before `end`: only
        /// whole groups of 64 are examined.
        /// @param ends  tells the marks and zero bytes of 64 positions
        /// @param end   at least 64 positions after the first
        /// @returns begin()
        template <class Ends>
        const char* fill(const Ends& ends, const char* position, const char* end);

    private:
        static constexpr std::size_t maxWords = 32;

        /// A bit for each position of the window.
        struct Bits
        {
            std::uint64_t words[maxWords] = {}; ///< bit i % 64 of words[i / 64] for begin() + i
            std::uint64_t wordsInUse = 0;       ///< bit i: words[i] is not zero

            void set(std::size_t word, std::uint64_t bits)
            {
                words[word] = bits;
                wordsInUse |= std::uint64_t(bits != 0) << word;
            }
        };

        const char* next(const Bits& bits, const char* position) const
        {
            const auto index = static_cast<std::size_t>(position - m_begin);
            std::size_t word = index / 64;
            if (const std::uint64_t following = bits.words[word] >> index % 64; following != 0)
                return position + std::countr_zero(following);
            const std::uint64_t later = bits.wordsInUse & ~std::uint64_t(1) << word;
            if (later == 0)
                return m_end;
            word = static_cast<std::size_t>(std::countr_zero(later));
            return m_begin + 64 * word + std::countr_zero(bits.words[word]);
        }

        const char* m_begin = nullptr;
        const char* m_end = nullptr;
        Bits m_marks;
        Bits m_zeros;
    };

    /// find() for ascending positions of the same text, which must not change: what is known from the last call is not
    /// compared again.
    /// @param begin   not before the last call's
    /// @param window  as the last call has left it; initially empty
    const char* find(const char* begin, const char* end, Window& window) const
    {
        return findIn(window, begin) ? begin : findBeyond(begin, end, window);
    }

private:
    /// Moves `position` to the first occurrence that the window knows; false, and to the end of what it knows, if there is
    /// none.
    bool findIn(const Window& window, const char*& position) const
    {
        for (; window.contains(position); ++position) {
            position = window.nextMark(position);
            if (position == window.end())
                return false;
            if (middleMatchesAt(position))
                return true;
        }
        return false;
    }

    bool middleMatchesAt(const char* position) const
    {
        for (std::size_t i = 1; i + 1 < m_bytes.size(); ++i)
            if (static_cast<char>(position[i] | m_caseBits[i]) != m_bytes[i])
                return false;
        return true;
    }

    const char* findBeyond(const char* begin, const char* end, Window& window) const;

    std::string m_caseBits; ///< for each byte of the needle: 0x20 if its case is ignored, else 0
    std::string m_bytes;    ///< each byte of the needle with its case bit set
};

} // namespace Kedrin::Tolvo
