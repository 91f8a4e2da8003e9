#include "json_document.h"

#include "ascii.h"
#include "errors.h"
#include "json_events.h"
#include "messages.h"

#include <algorithm>
#include <stdexcept>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxDepth = 100;
constexpr std::size_t maxValues = 1000000; // a Bible of 37,000 verses with six values each has 260,000
constexpr std::size_t maxTextBytes = 1u << 20;

constexpr bool isWordByte(char c)
{
    return isAsciiLetter(c) || isAsciiDigit(c) || c == '_' || c == '$' || c == '.';
}

/// Skips white space and JavaScript comments.
void skipBlanks(std::string_view& text)
{
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
        const std::string_view end = text.starts_with("//") ? "\n" : text.starts_with("/*") ? "*/" : "";
        if (end.empty())
            return;
        const std::size_t length = text.find(end, 2);
        text.remove_prefix(length == std::string_view::npos ? text.size() : length + end.size());
    }
}

std::string_view takeWord(std::string_view& text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isWordByte);
    const std::string_view word(text.begin(), end);
    text.remove_prefix(word.size());
    skipBlanks(text);
    return word;
}

/// Skips `var NAME =`, `NAME =` or `export default`.
/// @returns whether one of them was found
bool skipAssignment(std::string_view& text)
{
    const std::string_view first = takeWord(text);
    if (first == "export")
        return takeWord(text) == "default";
    if (first == "var" || first == "let" || first == "const")
        takeWord(text);
    if (first.empty() || !text.starts_with('='))
        return false;
    text.remove_prefix(1);
    skipBlanks(text);
    return true;
}

} // namespace

std::optional<std::string_view> jsonPart(std::string_view utf8)
{
    std::string_view text = utf8;
    skipBlanks(text);
    const bool isScript = isWordByte(utf8.empty() || text.empty() ? '{' : text.front());
    if (isScript && !skipAssignment(text))
        return std::nullopt;
    if (!text.starts_with('{') && !text.starts_with('['))
        return std::nullopt;
    return isScript ? trimmed(text, " \t\r\n;") : text;
}

bool isJson(std::string_view utf8)
{
    const auto part = jsonPart(utf8);
    if (!part)
        return false;
    const std::size_t next = part->find_first_not_of(whiteSpace, 1);
    const char second = next == std::string_view::npos ? '\0' : (*part)[next];
    return part->front() == '{' ? second == '"' || second == '}' : second == '{' || second == '[';
}

namespace {

/// The end of the last non-blank line, in whole characters.
std::string_view lineBefore(std::string_view text)
{
    constexpr std::size_t shownBytes = 30;
    text = trimmed(text);
    text.remove_prefix(text.find_last_of('\n') + 1);
    text.remove_prefix(text.size() - std::min(text.size(), shownBytes));
    while (!text.empty() && (static_cast<unsigned char>(text.front()) & 0xC0u) == 0x80)
        text.remove_prefix(1);
    while (!text.empty() && static_cast<unsigned char>(text.back()) >= 0x80)
        text.remove_suffix(1); // the offending byte may be the first of a character
    return text;
}

} // namespace

void CJsonDocument::CBuilder::fail(std::size_t line, const std::string& what) const
{
    failAtLine(m_document.m_fileName, line, what);
}

std::string_view CJsonDocument::CBuilder::keep(std::string_view text, std::size_t line)
{
    if (text.size() > maxTextBytes)
        fail(line, tr("a string longer than 1 MiB"));
    std::string& texts = m_document.m_texts;
    const std::size_t begin = texts.size();
    if (text.size() > texts.capacity() - begin)
        throw std::logic_error("a document is longer than it was said to be");
    texts += text;
    return std::string_view(texts).substr(begin);
}

void CJsonDocument::CBuilder::add(Kind kind, std::string_view text, std::size_t line)
{
    auto& values = m_document.m_values;
    if (values.size() == maxValues)
        fail(line, message("more than %s values", maxValues));
    const auto index = static_cast<std::uint32_t>(values.size());
    if (!m_open.empty()) {
        Open& parent = m_open.back();
        (parent.lastChild == 0 ? values[parent.index].firstChild : values[parent.lastChild].nextSibling) =
            index;
        parent.lastChild = index;
    }
    values.push_back({m_key, keep(text, line), static_cast<std::uint32_t>(line), 0, 0, kind, fieldOf(m_key)});
    m_key = {};
}

void CJsonDocument::CBuilder::open(Kind kind, std::size_t line)
{
    if (m_open.size() == maxDepth)
        fail(line, message("values are nested more than %s deep", maxDepth));
    add(kind, "", line);
    m_open.push_back({static_cast<std::uint32_t>(m_document.m_values.size() - 1), 0});
}

/// Parses JSON and gives it to a builder.
class CJsonDocument::CParse : public JsonEvents
{
public:
    using Kind = JsonValue::Kind;

    CParse(CBuilder& builder, const std::string& fileName, std::string_view utf8, std::string_view part)
        : m_builder(builder),
          m_part(part),
          m_lines(1 + static_cast<std::size_t>(std::count(utf8.begin(), part.begin(), '\n')))
    {
        if (!parseJson(part, m_lines, *this))
            failAtLine(fileName, m_lines.line(), m_complaint);
    }

    bool null() { return add(Kind::null, ""); }
    bool boolean(bool) { return add(Kind::boolean, ""); }
    bool number_integer(Json::number_integer_t number) { return add(Kind::number, std::to_string(number)); }
    bool number_unsigned(Json::number_unsigned_t number) { return add(Kind::number, std::to_string(number)); }
    bool number_float(Json::number_float_t, const std::string& text) { return add(Kind::number, text); }
    bool string(std::string& text) { return add(Kind::string, text); }
    bool start_object(std::size_t) { return open(Kind::object); }
    bool start_array(std::size_t) { return open(Kind::array); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(std::string& text)
    {
        m_builder.key(text, m_lines.line());
        return true;
    }

    /// @param position  after the offending byte
    bool parse_error(std::size_t position, const std::string&, const Json::exception&)
    {
        m_complaint = position > m_part.size()
                          ? tr("not valid JSON: unexpected end")
                          : message("not valid JSON: %s", inQuotes(lineBefore(m_part.substr(0, position))));
        return false;
    }

private:
    bool add(Kind kind, std::string_view text)
    {
        m_builder.add(kind, text, m_lines.line());
        return true;
    }

    bool open(Kind kind)
    {
        m_builder.open(kind, m_lines.line());
        return true;
    }

    bool close()
    {
        m_builder.close();
        return true;
    }

    CBuilder& m_builder;
    std::string_view m_part;
    CLineCounter m_lines;
    std::string m_complaint;
};

CJsonDocument::CJsonDocument(const std::string& fileName, std::string_view utf8) : m_fileName(fileName)
{
    const auto part = jsonPart(utf8);
    if (!part)
        failAtLine(fileName, 1, tr("not JSON: it does not start with { or ["));
    m_texts.reserve(part->size() + 1);
    CBuilder builder(*this);
    CParse(builder, fileName, utf8, *part);
}

CJsonDocument::CJsonDocument(const std::string& fileName, std::size_t maxBytes,
                             const std::function<void(CBuilder&)>& give)
    : m_fileName(fileName)
{
    m_texts.reserve(maxBytes);
    CBuilder builder(*this);
    give(builder);
}

CJsonDocument::CChildren CJsonDocument::childrenOf(const JsonValue& value) const
{
    return {m_values.data(), value.firstChild};
}

const JsonValue* CJsonDocument::find(const JsonValue& object, Field field) const
{
    const JsonValue* found = nullptr;
    for (const JsonValue& child : childrenOf(object)) {
        if (child.field != field)
            continue;
        if (found && found->key == child.key)
            failAtLine(m_fileName, child.line,
                       message("duplicate key %s in one object", inQuotes(child.key)));
        found = found ? found : &child;
    }
    return found;
}

} // namespace Kedrin::ModTool
