#include "plain_text.h"

#include "ascii.h"
#include "cp1251.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>
#include <utility>

namespace Kedrin::ModTool {

namespace {

struct Entity
{
    std::string_view name;
    char32_t codePoint;
};

constexpr Entity entities[] = {
    {"amp", '&'},       {"lt", '<'},        {"gt", '>'},        {"quot", '"'},      {"apos", '\''},
    {"nbsp", 0xA0},     {"laquo", 0xAB},    {"raquo", 0xBB},    {"ldquo", 0x201C},  {"rdquo", 0x201D},
    {"bdquo", 0x201E},  {"lsquo", 0x2018},  {"rsquo", 0x2019},  {"sbquo", 0x201A},  {"ndash", 0x2013},
    {"mdash", 0x2014},  {"hellip", 0x2026}, {"copy", 0xA9},     {"reg", 0xAE},      {"trade", 0x2122},
    {"sect", 0xA7},     {"para", 0xB6},     {"middot", 0xB7},   {"bull", 0x2022},   {"dagger", 0x2020},
    {"Dagger", 0x2021}, {"lsaquo", 0x2039}, {"rsaquo", 0x203A}, {"permil", 0x2030}, {"euro", 0x20AC},
    {"deg", 0xB0},      {"plusmn", 0xB1},   {"micro", 0xB5},    {"shy", 0xAD},
};

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

/// The character that "#1041" or "#x411" names; 0 for none.
char32_t numericReference(std::string_view digits)
{
    const bool hex = digits.starts_with('x') || digits.starts_with('X');
    if (hex)
        digits.remove_prefix(1);
    std::uint32_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hex ? 16 : 10);
    const bool good = error == std::errc() && end == digits.data() + digits.size() && value <= 0x10FFFF &&
                      !U_IS_SURROGATE(value);
    return good ? value : 0;
}

/// The character of the reference that `text` begins with, and its bytes; {0, 0} where it begins with none.
std::pair<char32_t, std::size_t> entityAt(std::string_view text)
{
    constexpr std::size_t longest = 10;
    const std::size_t end = text.substr(0, longest + 1).find(';');
    if (end == std::string_view::npos || end < 2)
        return {0, 0};
    const std::string_view name = text.substr(1, end - 1);
    char32_t codePoint = 0;
    if (name.starts_with('#'))
        codePoint = numericReference(name.substr(1));
    else
        for (const Entity& entity : entities)
            if (entity.name == name)
                codePoint = entity.codePoint;
    return {codePoint, codePoint == 0 ? 0 : end + 1};
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
