#include "bad_lines.h"

#include "book_finder.h"
#include "errors.h"
#include "messages.h"

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxDescribed = 20;

} // namespace

void CBadLines::add(std::size_t line, const std::function<std::string()>& reason)
{
    if (m_count++ < maxDescribed)
        m_described += '\n' + message("  line %s: %s", line, reason());
}

void CBadLines::refuse(const std::string& fileName) const
{
    if (m_count == 0)
        return;
    std::string list =
        message("%s: %s cannot be read:", fileName, counted(m_count, "line", "lines")) + m_described;
    if (m_count > maxDescribed)
        list += '\n' + message("  and %s", counted(m_count - maxDescribed, "more line", "more lines"));
    throw CBuildError(list);
}

std::string unknownBook(std::string_view name)
{
    const std::string nearest = bookFinder().nearest(name);
    return nearest.empty() ? message("%s is not a known book", inQuotes(name))
                           : message("%s is not a known book (did you mean %s?)", inQuotes(name), nearest);
}

} // namespace Kedrin::ModTool
