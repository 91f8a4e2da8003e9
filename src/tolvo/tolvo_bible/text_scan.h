#pragma once

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

    /// What a search knows of the 64 positions where it has stopped: bit i of `marks` is set where the needle's ends
    /// match, and not yet the bytes between, at begin + i.
    struct Window
    {
        const char* begin = nullptr; ///< null: nothing is known
        std::uint64_t marks = 0;
    };

    /// find() for ascending positions of the same text, which must not change: what is known from the last call is not
    /// compared again.
    /// @param begin   not before the last call's
    /// @param window  as the last call has left it; initially empty
    const char* find(const char* begin, const char* end, Window& window) const;

private:
    std::string m_caseBits; ///< for each byte of the needle: 0x20 if its case is ignored, else 0
    std::string m_bytes;    ///< each byte of the needle with its case bit set
};

/// Whether texts in one buffer contain a needle. The bounds of a text are checked only where the needle has
/// been found, so a buffer of many short texts is scanned as fast as one long text.
class CScanAhead
{
public:
    /// @param scan  must outlive this object
    /// @param endsAtZero  a text ends at its first zero byte, like a C string
    CScanAhead(const CTextScan& scan, bool endsAtZero) : m_scan(scan), m_endsAtZero(endsAtZero) {}

    /// Whether `text` contains the whole needle; an occurrence that crosses the end of a text does not count.
    /// @param bufferEnd  end of the buffer that holds `text`; what follows the text there is scanned in
    ///                   advance, so it should be the texts passed next. Texts in descending order cost no
    ///                   more than separate scans.
    /// @param bufferNum  a number that differs from the previous call's means that the bytes of the buffer
    ///                   have changed
    bool isIn(std::string_view text, const char* bufferEnd, unsigned int bufferNum)
    {
        const bool isBeforeHit =
            bufferNum == m_bufferNum && text.data() >= m_from && text.data() + text.size() < m_hit;
        return !isBeforeHit && scanFor(text, bufferEnd, bufferNum);
    }

    /// After isIn() of a text in the same buffer that begins at `from`: no text that begins there or later and ends
    /// before the returned position contains the needle. `from` if nothing more is known.
    const char* clearUpTo(const char* from) const { return from < m_from ? from : m_hit; }

private:
    bool scanFor(std::string_view text, const char* bufferEnd, unsigned int bufferNum);

    const CTextScan& m_scan;
    bool m_endsAtZero;
    CTextScan::Window m_window;
    unsigned int m_bufferNum = 0;
    const char* m_from = nullptr; ///< the first occurrence after this position is at m_hit; null: not known
    const char* m_hit = nullptr;
};

} // namespace Kedrin::Tolvo
