#include "usfm_tokens.h"

#include "ascii.h"
#include "usfm_markers.h"
#include "verse_number.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

bool isNameByte(char c) { return isAsciiLetter(c) || isAsciiDigit(c) || c == '-' || c == '_'; }

/// Whether a chapter or verse marker is directly followed by its number.
bool isBeforeNumber(std::string_view text)
{
    return text.size() > 1 && (text[0] == 'c' || text[0] == 'v') && isAsciiDigit(text[1]);
}

/// Length of the name at the start of the text.
std::size_t nameBytes(std::string_view text)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isNameByte) - text.begin());
}

/// Whether a text is attributes with their names: `lemma="x" strong='H1'`.
bool areAttributes(std::string_view text)
{
    bool hasAny = false;
    for (;;) {
        text = trimmedStart(text);
        if (text.empty())
            return hasAny;
        const std::size_t nameEnd = nameBytes(text);
        const std::size_t equals = text.find_first_not_of(whiteSpace, nameEnd);
        if (nameEnd == 0 || equals == std::string_view::npos || text[equals] != '=')
            return false;
        text.remove_prefix(equals + 1);
        text = trimmedStart(text);
        const std::size_t end = text.empty() || (text[0] != '"' && text[0] != '\'') ? std::string_view::npos
                                                                                    : text.find(text[0], 1);
        if (end == std::string_view::npos)
            return false;
        text.remove_prefix(end + 1);
        hasAny = true;
    }
}

} // namespace

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
    const std::string_view name = take(isBeforeNumber(m_rest) ? 1 : nameBytes(m_rest));
    if (m_rest.starts_with('*')) {
        take(1);
        return {UsfmToken::Kind::endMarker, name, {}, line};
    }
    const std::string_view rest = m_rest;
    if (baseName(name) != "id" && takeMilestoneEnd(name.ends_with("-s") || name.ends_with("-e")))
        return {UsfmToken::Kind::milestone, name, rest.substr(0, rest.size() - m_rest.size()), line};
    if (!m_rest.empty() && isWhiteSpace(m_rest.front()))
        take(m_rest.starts_with("\r\n") ? 2 : 1);
    return {UsfmToken::Kind::marker, name, {}, line};
}

std::string_view CUsfmTokens::nextEndMarker() const
{
    if (!m_rest.starts_with('\\'))
        return {};
    const std::string_view name = m_rest.substr(m_rest.starts_with("\\+") ? 2 : 1);
    const std::size_t byteCount = nameBytes(name);
    return name.substr(byteCount).starts_with('*') ? name.substr(0, byteCount) : std::string_view();
}

/// Reads `\*` and the attributes before it, if present; otherwise a milestone's attributes up to the end of
/// the line.
bool CUsfmTokens::takeMilestoneEnd(bool isMilestone)
{
    const std::size_t begin = std::min(m_rest.find_first_not_of(' '), m_rest.size());
    const std::size_t end = m_rest.find('\\', begin);
    const bool hasAttributes = begin != m_rest.size() && m_rest[begin] == '|';
    if (end == std::string_view::npos || m_rest.substr(end, 2) != "\\*" || (end != begin && !hasAttributes)) {
        if (isMilestone && hasAttributes)
            take(std::min(m_rest.find_first_of("\\\r\n"), m_rest.size()));
        return isMilestone && hasAttributes;
    }
    take(end + 2);
    return true;
}

std::string_view CUsfmTokens::restOfLine()
{
    return take(std::min(m_rest.find_first_of("\\\r\n"), m_rest.size()));
}

std::string_view CUsfmTokens::number()
{
    const CUsfmTokens before = *this;
    const std::string_view whole = word();
    const std::size_t byteCount = verseNumberBytes(whole);
    if (byteCount == whole.size())
        return whole;
    *this = before;
    take(static_cast<std::size_t>(whole.data() - m_rest.data()) + byteCount);
    return whole.substr(0, byteCount);
}

std::string_view CUsfmTokens::word()
{
    take(std::min(m_rest.find_first_not_of(" \t"), m_rest.size()));
    constexpr std::string_view noBreak = "\u00A0";
    const std::string_view upToBlank = m_rest.substr(0, m_rest.find_first_of(" \t\r\n\\"));
    const std::string_view taken = take(std::min(upToBlank.find(noBreak), upToBlank.size()));
    if (!m_rest.empty() && m_rest.front() != '\\')
        take(m_rest.starts_with(noBreak) ? noBreak.size() : 1);
    return taken;
}

std::string plainUsfm(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isLineBreak = text[i] == '/' && text.substr(i + 1).starts_with('/');
        plain += text[i] == '~' || isLineBreak ? ' ' : text[i];
        i += isLineBreak ? 1 : 0;
    }
    return plain;
}

std::size_t attributesBegin(std::string_view text, std::string_view endMarker)
{
    if (endMarker.empty())
        return std::string_view::npos;
    const bool isAny = hasUnnamedAttribute(endMarker);
    const std::size_t bar = isAny ? text.find('|') : text.rfind('|');
    return bar != std::string_view::npos && (isAny || areAttributes(text.substr(bar + 1)))
               ? bar
               : std::string_view::npos;
}

} // namespace Kedrin::ModTool
