#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The value in a JSON or JavaScript file, from its opening bracket to the end; nullopt if there is none.
std::optional<std::string_view> jsonPart(std::string_view utf8);

/// The line that a parser has reached.
class CLineCounter
{
public:
    explicit CLineCounter(std::size_t line) : m_line(line) {}

    void take(char c)
    {
        m_line += m_last == '\n' ? 1 : 0; // a line ends after its LF
        m_last = c;
    }
    std::size_t line() const { return m_line; }

private:
    std::size_t m_line;
    char m_last = '\0';
};

/// Iterates over a text and counts its lines; the counter is shared by copies, which the parser makes.
class CCountingIterator
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CCountingIterator(const char* position, CLineCounter& lines) : m_position(position), m_lines(&lines) {}
    const char& operator*() const { return *m_position; }
    CCountingIterator& operator++()
    {
        m_lines->take(*m_position++);
        return *this;
    }
    bool operator==(const CCountingIterator& other) const { return m_position == other.m_position; }

private:
    const char* m_position;
    CLineCounter* m_lines;
};

/// Default handlers for parseJson(). To stop, a handler throws.
struct JsonEvents
{
    using Json = nlohmann::json;

    bool null() { return true; }
    bool boolean(bool) { return true; }
    bool number_integer(Json::number_integer_t) { return true; }
    bool number_unsigned(Json::number_unsigned_t) { return true; }
    bool number_float(Json::number_float_t, const std::string&) { return true; }
    bool string(std::string&) { return true; }
    bool binary(Json::binary_t&) { return true; }
    bool start_object(std::size_t) { return true; }
    bool key(std::string&) { return true; }
    bool end_object() { return true; }
    bool start_array(std::size_t) { return true; }
    bool end_array() { return true; }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) { return false; }
};

/// Passes the parse events to the handler. The parser is not recursive.
/// @param lines  counts from the first byte of `part` on
template <typename Handler>
bool parseJson(std::string_view part, CLineCounter& lines, Handler& handler)
{
    return nlohmann::json::sax_parse(CCountingIterator(part.data(), lines),
                                     CCountingIterator(part.data() + part.size(), lines), &handler);
}

} // namespace Kedrin::ModTool
