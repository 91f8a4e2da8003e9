#include "plain_text.h"

#include "ascii.h"
#include "cp1251.h"
#include "html_entities.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace Kedrin::ModTool {

namespace {

constexpr std::array<std::string_view, 7> breakingTags = {"br", "p", "div", "li", "tr", "td", "hr"};

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
    std::string take() { return std::move(m_utf8); }

private:
    std::string m_utf8;
    bool m_blank = false;
};

/// Bytes of the tag or comment that `text` begins with; 0 where it begins with none.
std::size_t tagLength(std::string_view text)
{
    constexpr std::size_t longest = 4096; // bounds the time for a text of "<" alone
    text = text.substr(0, longest);
    if (text.starts_with("<!--")) {
        const std::size_t end = text.find("-->", 4);
        return end == std::string_view::npos ? 0 : end + 3;
    }
    if (text.size() < 3 || !(isAsciiLetter(text[1]) || text[1] == '!' || text[1] == '?' ||
                             (text[1] == '/' && isAsciiLetter(text[2]))))
        return 0;
    const std::size_t end = text.find('>');
    return end == std::string_view::npos ? 0 : end + 1;
}

bool breaksLine(std::string_view tag)
{
    tag.remove_prefix(tag[1] == '/' ? 2 : 1);
    const auto nameEnd = std::find_if_not(tag.begin(), tag.end(), isAsciiLetter);
    std::string name(tag.begin(), nameEnd);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return static_cast<char>(c | 0x20); });
    return std::find(breakingTags.begin(), breakingTags.end(), name) != breakingTags.end();
}

/// The character of the reference that `text` begins with, and its bytes; {0, 0} where it begins with none.
std::pair<char32_t, std::size_t> entityAt(std::string_view text)
{
    constexpr std::size_t longest = 10;
    const std::size_t end = text.substr(0, longest + 1).find(';');
    if (end == std::string_view::npos || end < 2)
        return {0, 0};
    const std::string_view name = text.substr(1, end - 1);
    const auto codePoint = referencedCharacter(name);
    return {codePoint.value_or(0), codePoint ? end + 1 : 0};
}

} // namespace

std::string plainLine(std::string_view stored)
{
    CLine line;
    for (const char c : stored.substr(0, stored.find('\0')))
        line.append(ut::from_cp1251(c));
    return line.take();
}

std::string plainText(std::string_view stored)
{
    stored = stored.substr(0, stored.find('\0'));
    CLine line;
    while (!stored.empty()) {
        std::size_t used = 0;
        if (stored.front() == '<') {
            used = tagLength(stored);
            if (used != 0 && breaksLine(stored.substr(0, used)))
                line.append(' ');
        } else if (stored.front() == '&') {
            char32_t codePoint = 0;
            std::tie(codePoint, used) = entityAt(stored);
            if (used != 0)
                line.append(codePoint);
        }
        if (used == 0) {
            line.append(ut::from_cp1251(stored.front()));
            used = 1;
        }
        stored.remove_prefix(used);
    }
    return line.take();
}

} // namespace Kedrin::ModTool
