#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ut {

/// Reads the lines of a text one after another, with the rules of a stream that reads into a fixed line buffer,
/// which the module formats are defined by: the end of the text, or a line longer than the buffer, puts the
/// reader into a lasting failed state. The text must outlive the reader.
class CLineReader
{
public:
    static constexpr std::size_t anyLength = std::string_view::npos;

    /// @param maxLength  most bytes a line may hold, its CR included and its LF not
    explicit CLineReader(std::string_view text, std::size_t maxLength = anyLength)
        : m_rest(text),
          m_maxLength(maxLength)
    {}

    /// Moves to the next line. A text that ends in LF has no further, empty line after it.
    /// @returns false when the reader has failed: then line() is empty, or the first `maxLength` bytes of the
    ///          over-long line that made it fail
    bool next();

    /// The current line up to its first zero byte, without its line ending.
    std::string line() const;

    bool failed() const { return m_failed; }

private:
    std::string_view m_rest;
    std::string_view m_line;
    std::size_t m_maxLength;
    bool m_failed = false;
};

/// Reads decimal numbers separated by white space (blank, tab, LF, VT, FF, CR). A number may carry a sign; it
/// ends at the first character that is no digit. The first token that is no number, or does not fit its type,
/// puts the reader into a lasting failed state. The text must outlive the reader.
class CNumberReader
{
public:
    explicit CNumberReader(std::string_view text) : m_rest(text) {}

    /// The next number, or nothing. A minus sign is refused.
    std::optional<std::uint32_t> nextUnsigned();
    std::optional<std::int32_t> nextSigned();

    /// What has not been read yet. Its length bounds how many numbers can follow: each takes a byte at least.
    std::string_view rest() const { return m_rest; }

private:
    template <typename Number>
    std::optional<Number> next();

    std::string_view m_rest;
    bool m_failed = false;
};

} // namespace ut
