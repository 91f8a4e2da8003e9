#include "rtf_tokens.h"

#include "ascii.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <charconv>
#include <unordered_map>

namespace Kedrin::ModTool {

namespace {

using Kind = RtfToken::Kind;

constexpr std::size_t escapeLength = 4; // \'e1

bool isAsciiPunctuation(char c) { return c > ' ' && c < 0x7F && !isAsciiLetter(c) && !isAsciiDigit(c); }

} // namespace

std::optional<unsigned char> escapedByte(std::string_view rtf)
{
    unsigned char byte = 0;
    if (rtf.size() < escapeLength || !rtf.starts_with("\\'") ||
        std::from_chars(rtf.data() + 2, rtf.data() + escapeLength, byte, 16).ptr != rtf.data() + escapeLength)
        return std::nullopt;
    return byte;
}

RtfToken controlAt(std::string_view rtf)
{
    std::size_t end = 1;
    while (end < rtf.size() && isAsciiLetter(rtf[end]))
        ++end;
    RtfToken token{Kind::control, {}, rtf.substr(1, end - 1)};
    int number = 0;
    const char* begin = rtf.data() + end;
    if (const auto [stop, error] = std::from_chars(begin, rtf.data() + rtf.size(), number);
        error == std::errc()) {
        token.number = number;
        end += static_cast<std::size_t>(stop - begin);
    }
    if (end < rtf.size() && rtf[end] == ' ')
        ++end;
    token.bytes = rtf.substr(0, end);
    return token;
}

RtfToken takeRtfToken(std::string_view& rtf)
{
    RtfToken token{Kind::text, rtf.substr(0, std::max<std::size_t>(
                                                 1, std::min(rtf.find_first_of("\\{}\r\n"), rtf.size())))};
    if (rtf.front() == '{' || rtf.front() == '}') {
        token.kind = rtf.front() == '{' ? Kind::open : Kind::close;
    } else if (rtf.front() == '\r' || rtf.front() == '\n') {
        token.kind = Kind::symbol; // writers break lines anywhere
    } else if (rtf.front() == '\\' && rtf.size() > 1) {
        if (const auto byte = escapedByte(rtf))
            token = {Kind::escape, rtf.substr(0, escapeLength), {}, {}, *byte};
        else if (isAsciiLetter(rtf[1]))
            token = controlAt(rtf);
        else if (isAsciiPunctuation(rtf[1]) || rtf[1] == '\r' || rtf[1] == '\n')
            token = {Kind::symbol, rtf.substr(0, 2)};
    }
    rtf.remove_prefix(token.bytes.size());
    return token;
}

std::string unicodeCharacter(int number)
{
    std::string utf8;
    const auto unit = static_cast<char16_t>(number);
    const bool isCharacter = number > -0x8000 && number <= 0xFFFF && !U16_IS_SURROGATE(unit);
    return icu::UnicodeString(isCharacter ? unit : u'\uFFFD').toUTF8String(utf8);
}

std::string_view rtfCharacter(std::string_view name)
{
    static const std::unordered_map<std::string_view, std::string_view> characters{
        {"\\~", "\u00A0"},     {"\\_", "\u2011"},    {"\\\\", "\\"},          {"\\{", "{"},
        {"\\}", "}"},          {"emdash", "\u2014"}, {"endash", "\u2013"},    {"lquote", "\u2018"},
        {"rquote", "\u2019"},  {"bullet", "\u2022"}, {"ldblquote", "\u201C"}, {"rdblquote", "\u201D"},
        {"emspace", "\u2003"}, {"enspace", "\u2002"}};
    const auto found = characters.find(name);
    return found == characters.end() ? std::string_view() : found->second;
}

} // namespace Kedrin::ModTool
