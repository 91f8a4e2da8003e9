#include "sword_markup.h"

#include "stray_markers.h"
#include "word_gap.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <charconv>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view noteEnd = "</note>";

/// The entry without the names of those who speak: headings that the library's filter of headings leaves.
std::string withoutSpeakers(std::string_view raw)
{
    constexpr std::string_view begin = "<speaker";
    constexpr std::string_view end = "</speaker>";
    std::string rest(raw);
    for (std::size_t speaker = rest.find(begin); speaker != std::string::npos;
         speaker = rest.find(begin, speaker)) {
        const std::size_t stop = rest.find(end, speaker);
        if (stop == std::string::npos)
            break;
        rest.erase(speaker, stop + end.size() - speaker);
    }
    return rest;
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

/// The character whose 16-bit number, with a sign, is given in decimal; "" for none.
std::string characterOf(std::string_view number)
{
    int value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc() || stop != end || value < -0x8000 || value > 0xFFFF || value == 0)
        return "";
    const auto unit = static_cast<char16_t>(value);
    std::string utf8;
    return icu::UnicodeString(&unit, 1).toUTF8String(utf8);
}

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
    const std::string_view number = text.substr(0, digits);
    text.remove_prefix(digits);
    const std::string character = word == "u" ? characterOf(number) : "";
    // after a character's number stands what is shown by programs that know no Unicode
    if (text.starts_with(' ') || (!text.empty() && (word.empty() || !character.empty())))
        text.remove_prefix(1);
    return word == "par" || word == "line" ? "\n" : character;
}

struct Entity
{
    std::string_view escaped;
    std::string_view standIn; ///< U+F8F0 and the next ones
    std::string_view meant;
};

constexpr Entity entities[] = {
    {"&amp;", "\xEF\xA3\xB0", "&"}, {"&lt;", "\xEF\xA3\xB1", "<"}, {"&gt;", "\xEF\xA3\xB2", ">"}};

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t i = text.find(from); i != std::string::npos; i = text.find(from, i + to.size()))
        text.replace(i, from.size(), to);
}

} // namespace

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

std::string cleanEntry(std::string_view whole)
{
    const std::string entry = withoutSpeakers(whole.substr(0, endOfBook(whole)));
    const std::string_view raw(entry);
    std::string clean;
    std::size_t begin = 0;
    for (std::size_t note = raw.find(noteEnd); note != std::string_view::npos;
         note = raw.find(noteEnd, begin)) {
        const std::size_t end = note + noteEnd.size();
        clean += raw.substr(begin, end - begin);
        if (needsSpaceBetween(withoutTags(beforeNote(raw.substr(0, note))), withoutTags(raw.substr(end))))
            clean += ' ';
        begin = end;
    }
    clean += raw.substr(begin);
    unsigned int ignored = 0; // countLeftOut() counts
    return mayHaveMarkers(clean) ? withoutMarkers(clean, ignored) : clean;
}

std::string withoutEntities(std::string_view raw)
{
    std::string text(raw);
    for (const Entity& entity : entities)
        replaceAll(text, entity.escaped, entity.standIn);
    return text;
}

std::string withMeantCharacters(std::string_view plain)
{
    std::string text(plain);
    for (const Entity& entity : entities)
        replaceAll(text, entity.standIn, entity.meant);
    return text;
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
