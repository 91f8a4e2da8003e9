#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// A text as the Unicode library needs it, and where its characters stand in the original.
class CUtf16Text
{
public:
    /// @param utf8  valid
    explicit CUtf16Text(std::string_view utf8)
        : m_text(icu::UnicodeString::fromUTF8(
              icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size()))))
    {
        m_bytes.reserve(static_cast<std::size_t>(m_text.length()) + 1);
        std::size_t byte = 0;
        for (std::int32_t i = 0; i < m_text.length(); ++i) {
            m_bytes.push_back(byte);
            byte += bytesOf(m_text.charAt(i));
        }
        m_bytes.push_back(byte);
    }

    const icu::UnicodeString& text() const { return m_text; }

    /// @param index  0 to length()
    std::size_t byteOf(std::int32_t index) const { return m_bytes[static_cast<std::size_t>(index)]; }

private:
    static std::size_t bytesOf(char16_t unit)
    {
        if (unit < 0x80)
            return 1;
        return unit < 0x800 || U16_IS_SURROGATE(unit) ? 2 : 3; // of a pair each half counts for two
    }

    icu::UnicodeString m_text;
    std::vector<std::size_t> m_bytes; ///< [index]
};

} // namespace Kedrin::ModTool
