#include "stored_markup.h"

#include "ascii.h"
#include "cp1251.h"
#include "html_entities.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace Kedrin::ModTool {

namespace {

using Kind = MarkupPiece::Kind;

constexpr std::size_t maxReferenceBytes = 10; // with & and ;: the view gives up on a longer one

// These keep the time linear in the length of a verse.
constexpr std::size_t maxTagBytes = 1024;
constexpr std::size_t maxBrackets = 100; // then the rest of the verse has no tags

constexpr std::string_view blockTags[] = {
    "address", "blockquote", "body",  "caption", "center", "dd", "div",   "dl",    "dt", "h1", "h2",
    "h3",      "h4",         "h5",    "h6",      "head",   "hr", "html",  "li",    "ol", "p",  "pre",
    "qt",      "table",      "tbody", "td",      "tfoot",  "th", "thead", "title", "tr", "ul"};

bool isNameByte(char c) { return isAsciiLetter(c) || isAsciiDigit(c) || c == '-' || c == ':' || c == '_'; }

std::string_view nameAt(std::string_view text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isNameByte);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

/// Collects code points as UTF-8, blanks and control characters folded.
class CLine
{
public:
    void append(char32_t codePoint)
    {
        const auto c = static_cast<UChar32>(codePoint);
        if (u_isUWhiteSpace(c) || u_iscntrl(c)) {
            m_blank = !m_utf8.empty();
            return;
        }
        if (m_blank)
            m_utf8 += ' ';
        m_blank = false;
        std::array<std::uint8_t, U8_MAX_LENGTH> bytes;
        std::int32_t count = 0;
        U8_APPEND_UNSAFE(bytes.data(), count, c);
        m_utf8.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count));
    }
    void append(std::string_view stored)
    {
        for (const char c : stored)
            append(ut::from_cp1251(c));
    }
    std::string take() { return std::move(m_utf8); }

private:
    std::string m_utf8;
    bool m_blank = false;
};

} // namespace

bool CStoredMarkup::next()
{
    if (m_rest.empty())
        return false;
    const std::string_view special = m_brackets < maxBrackets ? "<&" : "&";
    const std::size_t textLength = std::min(m_rest.find_first_of(special), m_rest.size());
    if (textLength != 0)
        take(Kind::text, textLength);
    else if (m_rest.starts_with('<'))
        readBracket();
    else
        readReference();
    return true;
}

void CStoredMarkup::take(Kind kind, std::size_t byteCount)
{
    m_piece.kind = kind;
    m_piece.bytes = m_rest.substr(0, byteCount);
    m_rest.remove_prefix(m_piece.bytes.size());
}

void CStoredMarkup::readBracket()
{
    const bool isDeclaration = m_rest.starts_with("<!") || m_rest.starts_with("<?");
    if (isDeclaration ? readDeclaration() : readTag())
        return;
    ++m_brackets;
    take(isDeclaration ? Kind::openDeclaration : Kind::bracket, 1);
}

/// @returns false where the declaration does not end
bool CStoredMarkup::readDeclaration()
{
    const bool isComment = m_rest.starts_with("<!--");
    const std::string_view end = isComment ? "-->" : ">";
    const std::size_t endsAt = m_rest.find(end, isComment ? 4 : 2);
    if (endsAt == std::string_view::npos)
        return false;
    take(Kind::declaration, endsAt + end.size());
    return true;
}

/// @returns false where the "<" begins no tag
bool CStoredMarkup::readTag()
{
    const bool isEnd = m_rest.starts_with("</");
    const std::size_t nameBegin = isEnd ? 2 : 1;
    const std::string_view inside = m_rest.substr(nameBegin, maxTagBytes);
    const std::string_view name = nameAt(inside);
    if (name.empty() || !isAsciiLetter(name[0]))
        return false;
    const std::size_t length = readAttributes(inside.substr(name.size()));
    if (length == std::string_view::npos)
        return false;
    m_piece.name = lower(name);
    take(isEnd ? Kind::endTag : Kind::startTag, nameBegin + name.size() + length);
    return true;
}

/// @param tag  what follows the tag's name
/// @returns its length up to and with the >, which does not count in quotes; npos when there is none
std::size_t CStoredMarkup::readAttributes(std::string_view tag)
{
    m_piece.attributes.clear();
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
            const bool isQuoted = at < tag.size() && (tag[at] == '"' || tag[at] == '\'');
            const std::size_t begin = at + (isQuoted ? 1 : 0);
            const std::size_t end =
                isQuoted ? tag.find(tag[at], begin) : tag.find_first_of(" \t\r\n>", begin);
            if (end == std::string_view::npos)
                return end;
            value = tag.substr(begin, end - begin);
            at = end + (isQuoted ? 1 : 0);
        }
        m_piece.attributes.emplace_back(lower(name), value);
    }
    return at < tag.size() ? at + 1 : std::string_view::npos;
}

void CStoredMarkup::readReference()
{
    const std::size_t end = m_rest.substr(0, maxReferenceBytes).find(';');
    const auto character =
        end == std::string_view::npos ? std::nullopt : referencedCharacter(m_rest.substr(1, end - 1));
    m_piece.character = character.value_or(0);
    if (character)
        take(Kind::character, end + 1);
    else
        take(Kind::ampersand, 1);
}

bool isBlockTag(std::string_view name)
{
    return std::find(std::begin(blockTags), std::end(blockTags), name) != std::end(blockTags);
}

bool separatesWords(std::string_view name) { return name == "br" || isBlockTag(name); }

std::string plainText(std::string_view stored)
{
    CLine line;
    CStoredMarkup markup(stored.substr(0, stored.find('\0')));
    while (markup.next()) {
        const MarkupPiece& piece = markup.piece();
        if (piece.kind == Kind::character)
            line.append(piece.character);
        else if (piece.kind == Kind::startTag || piece.kind == Kind::endTag)
            line.append(separatesWords(piece.name) ? " " : "");
        else if (piece.kind != Kind::declaration)
            line.append(piece.bytes);
    }
    return line.take();
}

std::string plainLine(std::string_view stored)
{
    CLine line;
    line.append(stored.substr(0, stored.find('\0')));
    return line.take();
}

} // namespace Kedrin::ModTool
