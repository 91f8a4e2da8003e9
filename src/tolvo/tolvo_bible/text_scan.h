#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Kedrin::Tolvo {

/// Finds one text, the needle, in any number of others: ut::cyr_stristr and std::string::find for long haystacks.
/// It compares the needle's first and last byte at many places at once, and the bytes between only where both
/// agree. Nothing throws but the constructor (std::bad_alloc).
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
        ignored, ///< the needle ends at its first zero byte, as a C string does
        exact    ///< byte by byte; zero bytes are characters like others
    };

    CTextScan(std::string_view needle, Case letterCase);

    std::size_t needleSize() const { return m_bytes.size(); }

    /// The first place in [begin, end) where the needle stands whole; `end` when there is none. An empty needle
    /// stands at `begin`. Reads nothing outside the range. A zero byte in the haystack is a byte like others.
    const char* find(const char* begin, const char* end) const;

private:
    bool standsAt(const char* place) const;

    std::string m_caseBits; ///< for each byte of the needle: 0x20 where case is ignored, else 0
    std::string m_bytes;    ///< each byte of the needle with its case bit set
};

/// Whether texts that lie in one buffer hold a needle. A text's own bounds are looked at only where the needle
/// has been found, so a buffer of many short texts is scanned as fast as one long one.
class CScanAhead
{
public:
    /// @param scan  must outlive this object
    /// @param endsAtZero  a text ends at its first zero byte, as a C string does
    CScanAhead(const CTextScan& scan, bool endsAtZero) : m_scan(scan), m_endsAtZero(endsAtZero) {}

    /// Whether the needle stands whole in `text`; a needle that crosses a text's border does not count.
    /// @param bufferEnd  end of the buffer that holds `text`; what follows the text there is scanned ahead of
    ///                   time, so it should be the texts asked for next. Texts in descending order cost no more
    ///                   than each alone.
    /// @param bufferNum  another number than at the call before tells that the buffer's bytes are others now
    bool isIn(std::string_view text, const char* bufferEnd, unsigned int bufferNum);

private:
    const CTextScan& m_scan;
    bool m_endsAtZero;
    unsigned int m_bufferNum = 0;
    const char* m_from = nullptr; ///< from here on the needle stands first at m_hit; null: nothing is known
    const char* m_hit = nullptr;
};

} // namespace Kedrin::Tolvo
