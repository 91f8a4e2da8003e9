#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ut {

/// Reads the lines of a text in order, by the rules of a stream that reads into a fixed line buffer, as the
/// module formats require: the end of the text, or a line longer than the buffer, puts the reader into a
/// permanent failed state. The text must outlive the reader.
class CLineReader
{
public:
    static constexpr std::size_t anyLength = std::string_view::npos;

    /// @param maxLength  maximum length of a line in bytes, including its CR but not its LF
    explicit CLineReader(std::string_view text, std::size_t maxLength = anyLength)
        : m_rest(text),
          m_maxLength(maxLength)
    {}

    /// Moves to the next line. A text that ends in LF has no empty line after it.
    /// @returns false when the reader has failed: then line() is empty, or the first `maxLength` bytes of the
    ///          over-long line that caused the failure
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

/// Reads decimal numbers separated by white space (space, tab, LF, VT, FF, CR). A number may have a sign; it
/// ends at the first character that is not a digit. The first token that is not a number, or does not fit its
/// type, puts the reader into a permanent failed state. The text must outlive the reader.
class CNumberReader
{
public:
    explicit CNumberReader(std::string_view text) : m_rest(text) {}

    /// The next number, or nothing. A minus sign is an error.
    std::optional<std::uint32_t> nextUnsigned();
    std::optional<std::int32_t> nextSigned();

    /// The rest of the text. Its length bounds the count of numbers that can follow: each takes at least one
    /// byte.
    std::string_view rest() const { return m_rest; }

private:
    template <typename Number>
    std::optional<Number> next();

    std::string_view m_rest;
    bool m_failed = false;
};

} // namespace ut
