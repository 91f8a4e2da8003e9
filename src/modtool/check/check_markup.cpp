#include "check_markup.h"

#include "ascii.h"
#include "cp1251.h"
#include "html_entities.h"

#include <algorithm>
#include <optional>
#include <span>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxEntityBytes = 9; // the view gives up on a longer one, its ; included

// These keep the time linear in the length of a verse.
constexpr std::size_t maxTagBytes = 1024;
constexpr std::size_t maxBrackets = 100; // then the rest of the verse is taken for text

using Names = std::span<const std::string_view>;

constexpr std::string_view inlineTags[] = {"b",      "big", "br",  "cite", "code", "del",  "dfn",   "em",
                                           "font",   "i",   "kbd", "nobr", "s",    "samp", "small", "span",
                                           "strong", "sub", "sup", "tt",   "u",    "var"};
constexpr std::string_view blockTags[] = {
    "address", "blockquote", "body",  "caption", "center", "dd", "div",   "dl",    "dt", "h1", "h2",
    "h3",      "h4",         "h5",    "h6",      "head",   "hr", "html",  "li",    "ol", "p",  "pre",
    "qt",      "table",      "tbody", "td",      "tfoot",  "th", "thead", "title", "tr", "ul"};
constexpr std::string_view imageTags[] = {"img",   "image", "object", "embed", "iframe",
                                          "frame", "audio", "video",  "svg",   "applet"};
constexpr std::string_view styleTags[] = {"style", "link", "meta", "base"};
constexpr std::string_view scriptTags[] = {"script", "form", "input", "button"};
constexpr std::string_view voidTags[] = {"br",    "hr",   "img",  "image", "embed",
                                         "frame", "link", "meta", "base",  "input"};

bool isOneOf(std::string_view name, Names names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isNameByte(char c) { return isAsciiLetter(c) || isAsciiDigit(c) || c == '-' || c == ':' || c == '_'; }

std::string_view nameAt(std::string_view text)
{
    return text.substr(
        0, static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isNameByte) - text.begin()));
}

} // namespace

void CMarkupReader::read(std::string_view stored)
{
    m_rest = stored;
    m_plain.clear();
    m_open.clear();
    m_tooDeep = 0;
    m_defects.clear();
    m_brackets = 0;
    while (!m_rest.empty()) {
        const char* special = m_brackets < maxBrackets ? "<&" : "&";
        const std::size_t textEnd = std::min(m_rest.find_first_of(special), m_rest.size());
        m_plain += m_rest.substr(0, textEnd);
        m_rest.remove_prefix(textEnd);
        if (m_rest.starts_with('<'))
            readTag();
        else if (!m_rest.empty())
            readEntity();
    }
    m_item = stored;
    for (std::size_t i = m_open.size() + m_tooDeep; i > 0; --i)
        addDefect(CheckID::markupUnbalanced);
}

void CMarkupReader::readTag()
{
    const char next = m_rest.size() > 1 ? m_rest[1] : ' ';
    if (next == '!' || next == '?') {
        readDeclaration();
        return;
    }
    const bool closes = next == '/';
    const std::size_t nameBegin = closes ? 2 : 1;
    const std::string_view inside = m_rest.substr(nameBegin, maxTagBytes);
    const std::string_view name = nameAt(inside);
    const std::size_t defectsBefore = m_defects.size();
    m_isGoto = false;
    const bool isName = !name.empty() && isAsciiLetter(name[0]);
    const std::size_t length = isName ? readAttributes(inside.substr(name.size())) : std::string_view::npos;
    m_defects.resize(length == std::string_view::npos ? defectsBefore : m_defects.size());
    if (length == std::string_view::npos) {
        takeBracketForText();
        return;
    }
    m_item = m_rest.substr(0, nameBegin + name.size() + length);
    for (std::size_t i = defectsBefore; i < m_defects.size(); ++i)
        m_defects[i].where = m_item;
    m_rest.remove_prefix(m_item.size());
    applyTag(lower(name), !closes);
}

void CMarkupReader::takeBracketForText()
{
    m_item = m_rest.substr(0, maxEntityBytes);
    addDefect(CheckID::markupBracket);
    ++m_brackets;
    m_plain += '<';
    m_rest.remove_prefix(1);
}

void CMarkupReader::applyTag(const std::string& name, bool opens)
{
    judgeTag(name, opens);
    if (!opens)
        close(name);
    else if (!isOneOf(name, voidTags) && !m_item.ends_with("/>"))
        open(name);
}

/// A comment, or anything else that begins with <! or <?.
void CMarkupReader::readDeclaration()
{
    const std::string_view end = m_rest.starts_with("<!--") ? "-->" : ">";
    const std::size_t endsAt = m_rest.find(end);
    m_item = m_rest.substr(0, endsAt == std::string_view::npos ? endsAt : endsAt + end.size());
    m_rest.remove_prefix(m_item.size());
    addDefect(CheckID::markupComment);
}

/// @param tag  what follows the tag's name
/// @returns its length up to and with the >; npos when there is none
std::size_t CMarkupReader::readAttributes(std::string_view tag)
{
    std::size_t at = 0;
    while (at < tag.size() && tag[at] != '>') {
        const std::string_view name = nameAt(tag.substr(at));
        if (name.empty()) {
            ++at;
            continue;
        }
        at += name.size();
        std::string_view value;
        const std::size_t sign = std::min(tag.find_first_not_of(' ', at), tag.size());
        if (sign < tag.size() && tag[sign] == '=') {
            at = std::min(tag.find_first_not_of(' ', sign + 1), tag.size());
            const bool quoted = at < tag.size() && (tag[at] == '"' || tag[at] == '\'');
            const std::size_t begin = at + (quoted ? 1 : 0);
            const std::size_t end = quoted ? tag.find(tag[at], begin) : tag.find_first_of(" \t\r\n>", begin);
            if (end == std::string_view::npos)
                return end;
            value = tag.substr(begin, end - begin);
            at = end + (quoted ? 1 : 0);
        }
        judgeAttribute(lower(name), value);
    }
    return at < tag.size() ? at + 1 : std::string_view::npos;
}

void CMarkupReader::judgeAttribute(std::string_view name, std::string_view value)
{
    if (name == "style")
        addDefect(CheckID::markupStyle);
    if (name.starts_with("on"))
        addDefect(CheckID::markupScript);
    m_isGoto |= (name == "name" || name == "id") && value == "gotoChapter";
}

void CMarkupReader::judgeTag(std::string_view name, bool opens)
{
    if (isOneOf(name, blockTags) || name == "br")
        m_plain += ' ';
    if (!opens)
        return;
    if (m_isGoto)
        addDefect(CheckID::markupGotoChapter);
    else if (name == "a")
        addDefect(CheckID::markupLink);
    else if (isOneOf(name, imageTags))
        addDefect(CheckID::markupImage);
    else if (isOneOf(name, styleTags))
        addDefect(CheckID::markupStyle);
    else if (isOneOf(name, scriptTags))
        addDefect(CheckID::markupScript);
    else if (isOneOf(name, blockTags))
        addDefect(CheckID::markupBlock);
    else if (!isOneOf(name, inlineTags))
        addDefect(CheckID::markupUnknownTag);
}

void CMarkupReader::open(std::string_view name)
{
    if (m_open.size() < maxDepth) {
        m_open.emplace_back(name);
        return;
    }
    if (m_tooDeep++ == 0)
        addDefect(CheckID::markupDeep);
}

void CMarkupReader::close(std::string_view name)
{
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    const auto found = std::find(m_open.rbegin(), m_open.rend(), name);
    if (found != m_open.rbegin() || found == m_open.rend())
        addDefect(CheckID::markupUnbalanced);
    if (found != m_open.rend())
        m_open.erase(found.base() - 1, m_open.end());
}

void CMarkupReader::readEntity()
{
    const std::size_t end = m_rest.substr(0, maxEntityBytes + 1).find(';');
    const bool ends = end != std::string_view::npos;
    m_item = m_rest.substr(0, ends ? end + 1 : maxEntityBytes);
    const auto codePoint = ends ? referencedCharacter(m_rest.substr(1, end - 1)) : std::nullopt;
    if (!codePoint) {
        addDefect(CheckID::markupEntity);
        m_plain += '&';
        m_rest.remove_prefix(1);
        return;
    }
    const auto byte = ut::to_cp1251(*codePoint);
    if (!byte)
        addDefect(CheckID::markupForeignEntity);
    m_plain += byte.value_or('?');
    m_rest.remove_prefix(m_item.size());
}

} // namespace Kedrin::ModTool
