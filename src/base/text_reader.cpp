#include "text_reader.h"

#include <charconv>

namespace ut {

bool CLineReader::next()
{
    m_line = {};
    if (m_failed || m_rest.empty()) {
        m_failed = true;
        return false;
    }
    const std::size_t end = m_rest.find('\n');
    m_line = m_rest.substr(0, end);
    if (m_line.size() > m_maxLength) {
        m_line = m_line.substr(0, m_maxLength);
        m_failed = true;
        return false;
    }
    m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
    return true;
}

std::string CLineReader::line() const
{
    const std::string_view line = m_line.substr(0, m_line.find('\0'));
    return std::string(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
}

template <typename Number>
std::optional<Number> CNumberReader::next()
{
    const std::size_t start = m_rest.find_first_not_of(" \t\n\v\f\r");
    if (m_failed || start == std::string_view::npos)
        return std::nullopt;
    m_rest.remove_prefix(start);
    std::string_view digits = m_rest;
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) // from_chars would accept a second sign
            digits = {};
    }
    Number number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc()) {
        m_failed = true;
        return std::nullopt;
    }
    m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
    return number;
}

std::optional<std::uint32_t> CNumberReader::nextUnsigned() { return next<std::uint32_t>(); }

std::optional<std::int32_t> CNumberReader::nextSigned() { return next<std::int32_t>(); }

} // namespace ut
