#include "sword_markup.h"

#include "ascii.h"
#include "html_entities.h"
#include "letters.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace Kedrin::ModTool {

namespace {

using Form = SwordPiece::Form;

constexpr std::size_t maxTagBytes = 65536; // bounds the time for an entry of "<" alone

struct Reference
{
    char32_t codePoint;
    std::size_t byteCount;
};

/// The character that "CA65" or "CG" stands for.
std::optional<char32_t> gbfCharacter(std::string_view code)
{
    if (code.starts_with("CG"))
        return U'>';
    code.remove_prefix(2);
    const bool isNumber = !code.empty() && std::all_of(code.begin(), code.end(), isAsciiDigit);
    return isNumber ? referencedCharacter('#' + std::string(code)) : std::nullopt;
}

/// The reference to a character that the text begins with.
std::optional<Reference> referenceAt(std::string_view text)
{
    constexpr std::size_t longest = 12;
    const bool isGbf = text.starts_with("<CA") || text.starts_with("<CG>");
    const std::size_t end = text.substr(0, longest).find(isGbf ? '>' : ';');
    if (end == std::string_view::npos || !(isGbf || text.starts_with('&')))
        return std::nullopt;
    const std::string_view code = text.substr(1, end - 1);
    const auto codePoint = isGbf ? gbfCharacter(code) : referencedCharacter(code);
    return codePoint ? std::optional<Reference>({*codePoint, end + 1}) : std::nullopt;
}

/// Bytes of the comment that the text begins with; 0 where it does not end.
std::size_t commentLength(std::string_view text)
{
    constexpr std::size_t longest = 4096;
    constexpr std::size_t shortest = std::string_view("<!---->").size();
    text = text.substr(0, longest);
    for (std::size_t end = text.find('>'); end != std::string_view::npos; end = text.find('>', end + 1))
        if (end + 1 >= shortest && text.substr(end - 2, 2) == "--")
            return end + 1;
    return 0;
}

/// Bytes of the tag that the text begins with; 0 where it begins with none. A ">" in quotes belongs to the attribute.
std::size_t tagLength(std::string_view text)
{
    if (text.size() < 3 || !(isAsciiLetter(text[1]) || text[1] == '/' || text[1] == '!' || text[1] == '?') ||
        referenceAt(text))
        return 0;
    text = text.substr(0, maxTagBytes);
    if (text.starts_with("<!--"))
        return commentLength(text);
    const std::size_t first = text.find('>');
    if (first == std::string_view::npos)
        return 0;
    const std::string_view reach = text.substr(0, text.find('<', 1));
    bool isQuoted = false;
    for (std::size_t i = 0; i < reach.size(); ++i) {
        if (reach[i] == '>' && !isQuoted)
            return i + 1;
        isQuoted = isQuoted != (reach[i] == '"');
    }
    return first < reach.size() ? first + 1 : 0;
}

bool isGbfPair(std::string_view name)
{
    return name.size() >= 2 && (name[0] == 'R' || name[0] == 'T') && isAsciiLetter(name[1]) &&
           std::all_of(name.begin() + 2, name.end(), isAsciiDigit);
}

SwordPiece pieceOfTag(std::string_view tag)
{
    const bool isEnd = tag[1] == '/';
    std::string_view name = tag.substr(isEnd ? 2 : 1);
    const auto nameEnd = std::find_if(name.begin(), name.end(),
                                      [](char c) { return isWhiteSpace(c) || c == '/' || c == '>'; });
    name = name.substr(0, static_cast<std::size_t>(nameEnd - name.begin()));
    if (isEnd)
        return {Form::end, tag, name};
    for (const std::string_view pair : {"RF", "RX", "TS"})
        if (isGbfPair(name) && name[0] == pair[0] && (name[1] & ~0x20) == pair[1])
            return {name[1] == pair[1] ? Form::start : Form::end, tag, pair};
    const bool standsAlone = tag.ends_with("/>") || tag[1] == '!' || tag[1] == '?';
    return {standsAlone ? Form::empty : Form::start, tag, name};
}

/// Where the next tag begins, or the end of the text.
std::size_t textLength(std::string_view text)
{
    std::size_t end = text.find('<');
    while (end != std::string_view::npos && tagLength(text.substr(end)) == 0)
        end = text.find('<', end + 1);
    return std::min(end, text.size());
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

} // namespace

std::vector<SwordPiece> swordPieces(std::string_view raw)
{
    std::vector<SwordPiece> pieces;
    while (!raw.empty()) {
        if (const std::size_t length = textLength(raw); length != 0) {
            pieces.push_back({Form::text, raw.substr(0, length), ""});
            raw.remove_prefix(length);
        }
        if (raw.empty())
            break;
        const std::size_t length = tagLength(raw);
        pieces.push_back(pieceOfTag(raw.substr(0, length)));
        raw.remove_prefix(length);
    }
    return pieces;
}

std::string_view swordAttribute(std::string_view tag, std::string_view name)
{
    for (std::size_t i = tag.find(name, 1); i != std::string_view::npos; i = tag.find(name, i + 1)) {
        const std::string_view rest = tag.substr(i + name.size());
        if (!isWhiteSpace(tag[i - 1]) || rest.size() < 2 || rest[0] != '=' ||
            (rest[1] != '"' && rest[1] != '\''))
            continue;
        const std::string_view value = rest.substr(2);
        return value.substr(0, value.find(rest[1]));
    }
    return "";
}

std::string swordCharacters(std::string_view text)
{
    std::string characters;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find_first_of("&<"), text.size());
        characters += text.substr(0, plain);
        text.remove_prefix(plain);
        if (const auto reference = referenceAt(text)) {
            icu::UnicodeString(static_cast<UChar32>(reference->codePoint)).toUTF8String(characters);
            text.remove_prefix(reference->byteCount);
        } else if (!text.empty()) {
            characters += text.front();
            text.remove_prefix(1);
        }
    }
    return characters;
}

std::uint64_t lettersOfEntry(std::string_view raw)
{
    std::uint64_t count = 0;
    for (std::size_t begin = 0, i = 0; i <= raw.size();) {
        const std::size_t tag = i < raw.size() && raw[i] == '<' ? tagLength(raw.substr(i)) : 0;
        if (tag != 0 || i == raw.size()) {
            count += countLetters(swordCharacters(raw.substr(begin, i - begin)));
            begin = i + tag;
        }
        i += std::max<std::size_t>(tag, 1);
    }
    return count;
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
