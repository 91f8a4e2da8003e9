#include "sword_markup.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view noteEnd = "</note>";

/// Where the tag that ends a book begins, or npos. Containers are stored as pairs of empty elements with ids.
std::size_t endOfBook(std::string_view raw)
{
    for (std::size_t begin = raw.find("<div "); begin != std::string_view::npos;
         begin = raw.find("<div ", begin + 1)) {
        const std::string_view tag = raw.substr(begin, raw.find('>', begin) - begin);
        if (tag.find(" eID=") != std::string_view::npos &&
            tag.find(" type=\"book\"") != std::string_view::npos)
            return begin;
    }
    return std::string_view::npos;
}

/// The first character that is not part of a tag; 0 at the end.
char32_t firstVisible(std::string_view text)
{
    while (text.starts_with('<'))
        text.remove_prefix(std::min(text.find('>'), text.size() - 1) + 1);
    if (text.empty())
        return 0;
    std::int32_t i = 0;
    UChar32 codePoint;
    U8_NEXT(reinterpret_cast<const std::uint8_t*>(text.data()), i, static_cast<std::int32_t>(text.size()),
            codePoint);
    return codePoint < 0 ? 0 : static_cast<char32_t>(codePoint);
}

/// Whether a blank belongs before the character where it begins something new.
bool beginsWord(char32_t codePoint)
{
    const auto c = static_cast<UChar32>(codePoint);
    const auto type = u_charType(c);
    return u_isalnum(c) || type == U_START_PUNCTUATION || type == U_INITIAL_PUNCTUATION;
}

/// Whether text that ends so wants no blank after it: it has one, or an opening bracket or quote, or is empty.
bool endsOpen(std::string_view text)
{
    while (text.ends_with('>')) {
        const std::size_t tag = text.rfind('<');
        if (tag == std::string_view::npos)
            break;
        text = text.substr(0, tag);
    }
    if (text.empty())
        return true;
    auto i = static_cast<std::int32_t>(text.size());
    UChar32 codePoint;
    U8_PREV(reinterpret_cast<const std::uint8_t*>(text.data()), 0, i, codePoint);
    if (codePoint < 0)
        return false;
    const auto type = u_charType(codePoint);
    return u_isUWhiteSpace(codePoint) || type == U_START_PUNCTUATION || type == U_INITIAL_PUNCTUATION;
}

/// The text before a note, given all that stands before the note's end tag.
std::string_view beforeNote(std::string_view upToEnd)
{
    return upToEnd.substr(0, std::min(upToEnd.rfind("<note"), upToEnd.size()));
}

std::string withoutTags(std::string_view text)
{
    std::string plain;
    while (!text.empty()) {
        const std::size_t tag = std::min(text.find('<'), text.size());
        plain += text.substr(0, tag);
        text.remove_prefix(tag);
        text.remove_prefix(text.empty() ? 0 : std::min(text.find('>'), text.size() - 1) + 1);
    }
    return plain;
}

bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Reads an RTF control at the front of `text`, which begins with a backslash, and takes it off.
/// @returns what it stands for
std::string takeControl(std::string_view& text)
{
    text.remove_prefix(1);
    std::size_t length = 0;
    while (length < text.size() && isAsciiLetter(text[length]))
        ++length;
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    std::size_t digits = 0;
    while (digits < text.size() &&
           ((text[digits] >= '0' && text[digits] <= '9') || (digits == 0 && text[0] == '-')))
        ++digits;
    text.remove_prefix(digits);
    if (text.starts_with(' ') || (word.empty() && !text.empty()))
        text.remove_prefix(1);
    return word == "par" || word == "line" ? "\n" : "";
}

} // namespace

std::string cleanEntry(std::string_view raw)
{
    raw = raw.substr(0, endOfBook(raw));
    std::string clean;
    std::size_t begin = 0;
    for (std::size_t note = raw.find(noteEnd); note != std::string_view::npos;
         note = raw.find(noteEnd, begin)) {
        const std::size_t end = note + noteEnd.size();
        clean += raw.substr(begin, end - begin);
        if (beginsWord(firstVisible(raw.substr(end))) && !endsOpen(beforeNote(raw.substr(0, note))))
            clean += ' ';
        begin = end;
    }
    clean += raw.substr(begin);
    return clean;
}

std::string plainConfiguration(std::string_view value)
{
    std::string plain;
    while (!value.empty()) {
        if (value.front() == '\\') {
            plain += takeControl(value);
            continue;
        }
        if (value.front() != '{' && value.front() != '}')
            plain += value.front();
        value.remove_prefix(1);
    }
    return withoutTags(plain);
}

} // namespace Kedrin::ModTool
