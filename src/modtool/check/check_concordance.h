#pragma once

#include "byte_spans.h"
#include "check_books.h"
#include "check_findings.h"
#include "check_text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// The entries of one concordance, checked word by word against the text.
class CConcordanceCheck
{
public:
    /// All arguments must outlive this object.
    /// @param concPoints  ConcP.bin
    /// @param conc        Conc.bin
    /// @param text        null: unknown
    CConcordanceCheck(std::string_view concPoints, std::string_view conc, const CheckedShape& shape,
                      const CheckedText* text, CFindings& findings);

    /// Checks the entry of the next word of the list.
    /// @param word      its bytes
    /// @param expected  the verses that contain it, ascending; empty: none, or the text is unknown
    /// @returns false when there are more entries than can be checked
    bool checkNext(std::string_view word, std::span<const std::uint16_t> expected);

    /// Whether the last entry names a verse whose text is unknown.
    bool namesUnread() const { return m_namesUnread; }

    /// Call after the last word.
    void finish();

private:
    bool readEntry(std::string_view word);
    void judgeNumbers(std::string_view word);
    void compare(std::string_view word, std::span<const std::uint16_t> expected);
    void addVerse(CheckID check, std::string_view word, std::uint32_t verse);

    std::string_view m_concPoints;
    std::string_view m_conc;
    const CheckedShape& m_shape;
    const CheckedText* m_text;
    CFindings& m_findings;
    std::uint64_t m_versesCount;
    std::vector<std::uint32_t> m_numbers; ///< of the last entry, as stored: from 1
    bool m_namesUnread = false;
    CSpans m_spans;
    bool m_allReached = true;
    std::uint32_t m_wordIndex = 0; ///< of the next word
    std::uint64_t m_numbersRead = 0;
};

} // namespace Kedrin::ModTool
