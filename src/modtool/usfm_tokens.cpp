#include "usfm_tokens.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

bool isNameByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

bool isBlankByte(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

} // namespace

std::string_view baseName(std::string_view marker)
{
    if (marker.ends_with("-s") || marker.ends_with("-e"))
        marker.remove_suffix(2);
    while (!marker.empty() && marker.back() >= '0' && marker.back() <= '9')
        marker.remove_suffix(1);
    return marker;
}

std::string_view CUsfmTokens::take(std::size_t byteCount)
{
    const std::string_view taken = m_rest.substr(0, byteCount);
    m_line += static_cast<std::size_t>(std::count(taken.begin(), taken.end(), '\n'));
    m_rest.remove_prefix(taken.size());
    return taken;
}

UsfmToken CUsfmTokens::next()
{
    if (m_rest.empty())
        return {UsfmToken::Kind::none, {}, {}, m_line};
    if (m_rest.front() == '\\')
        return marker();
    const std::size_t line = m_line;
    return {UsfmToken::Kind::text, {}, take(std::min(m_rest.find('\\'), m_rest.size())), line};
}

UsfmToken CUsfmTokens::marker()
{
    const std::size_t line = m_line;
    take(1);
    if (m_rest.starts_with('+'))
        take(1);
    const auto* end = std::find_if_not(m_rest.begin(), m_rest.end(), isNameByte);
    const std::string_view name = take(static_cast<std::size_t>(end - m_rest.begin()));
    if (m_rest.starts_with('*')) {
        take(1);
        return {UsfmToken::Kind::endMarker, name, {}, line};
    }
    if (takeMilestoneEnd())
        return {UsfmToken::Kind::milestone, name, {}, line};
    if (!m_rest.empty() && isBlankByte(m_rest.front()))
        take(m_rest.starts_with("\r\n") ? 2 : 1);
    return {UsfmToken::Kind::marker, name, {}, line};
}

/// Takes `\*`, with attributes before it, where the marker has such an end.
bool CUsfmTokens::takeMilestoneEnd()
{
    const std::size_t begin = std::min(m_rest.find_first_not_of(' '), m_rest.size());
    const std::size_t end = m_rest.find('\\', begin);
    if (end == std::string_view::npos || m_rest.substr(end, 2) != "\\*" ||
        (end != begin && m_rest[begin] != '|'))
        return false;
    take(end + 2);
    return true;
}

std::string_view CUsfmTokens::restOfLine()
{
    return take(std::min(m_rest.find_first_of("\\\r\n"), m_rest.size()));
}

std::string_view CUsfmTokens::word()
{
    take(std::min(m_rest.find_first_not_of(" \t"), m_rest.size()));
    const std::string_view taken = take(std::min(m_rest.find_first_of(" \t\r\n\\"), m_rest.size()));
    if (!m_rest.empty() && m_rest.front() != '\\')
        take(1);
    return taken;
}

} // namespace Kedrin::ModTool
