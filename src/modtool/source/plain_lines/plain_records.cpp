#include "plain_records.h"

#include "ascii.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view blanks = " \t";

std::string_view withoutReturn(std::string_view text)
{
    return text.ends_with('\r') ? text.substr(0, text.size() - 1) : text;
}

} // namespace

std::string PlainField::text() const
{
    if (!isQuoted)
        return std::string(raw);
    std::string single;
    single.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        single += raw[i];
        if (raw[i] == '"') // the second one follows
            ++i;
    }
    return single;
}

CPlainRecords::CPlainRecords(std::string_view utf8, std::string_view delimiter, std::size_t maxFields)
    : m_text(utf8),
      m_delimiter(delimiter),
      m_maxFields(maxFields),
      m_mayQuote(delimiter == "," || delimiter == ";")
{}

bool CPlainRecords::next()
{
    while (m_next < m_text.size()) {
        const std::size_t begin = m_next;
        m_line = m_nextLine;
        takeRecord();
        const std::string_view record = m_text.substr(begin, m_next - begin);
        m_nextLine += static_cast<std::size_t>(std::count(record.begin(), record.end(), '\n'));
        if (!isBlank(record))
            return true;
    }
    return false;
}

void CPlainRecords::takeRecord()
{
    m_fields.clear();
    m_flaw = Flaw::none;
    m_atEnd = false;
    while (!m_atEnd) {
        const std::size_t quote = std::min(m_text.find_first_not_of(' ', m_next), m_text.size());
        if (m_mayQuote && m_fields.size() < m_maxFields && m_text.substr(quote).starts_with('"')) {
            m_next = quote + 1;
            takeQuotedField();
        } else {
            takeField();
        }
    }
}

std::size_t CPlainRecords::lineEnd() const { return std::min(m_text.find('\n', m_next), m_text.size()); }

void CPlainRecords::takeField()
{
    const std::size_t end = lineEnd();
    const std::string_view rest = m_text.substr(m_next, end - m_next);
    const std::size_t delimiter =
        m_fields.size() + 1 < m_maxFields ? rest.find(m_delimiter) : std::string_view::npos;
    m_atEnd = delimiter == std::string_view::npos;
    m_fields.push_back({m_atEnd ? withoutReturn(rest) : rest.substr(0, delimiter), false});
    m_next = m_atEnd ? std::min(end + 1, m_text.size()) : m_next + delimiter + m_delimiter.size();
}

void CPlainRecords::takeQuotedField()
{
    const std::size_t begin = m_next;
    std::size_t quote = m_text.find('"', m_next);
    while (quote != std::string_view::npos && m_text.substr(quote + 1).starts_with('"'))
        quote = m_text.find('"', quote + 2);
    const std::size_t end = std::min(quote, m_text.size());
    m_fields.push_back({m_text.substr(begin, end - begin), true});
    m_next = std::min(end + 1, m_text.size());
    if (quote == std::string_view::npos) {
        m_flaw = Flaw::unclosedQuote;
        m_atEnd = true;
        return;
    }
    const std::size_t last = lineEnd();
    const std::string_view rest = m_text.substr(m_next, last - m_next);
    const std::size_t behind = std::min(rest.find_first_not_of(blanks), rest.size());
    if (rest.substr(behind).starts_with(m_delimiter)) {
        m_next += behind + m_delimiter.size();
        return;
    }
    m_atEnd = true;
    m_next = std::min(last + 1, m_text.size());
    if (!isBlank(rest))
        m_flaw = Flaw::textBehindQuote;
}

} // namespace Kedrin::ModTool
