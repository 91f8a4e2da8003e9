#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

// ASCII only, independent of the locale; other bytes are not changed.
namespace Kedrin::ModTool {

inline constexpr std::string_view whiteSpace = " \t\r\n";

constexpr bool isWhiteSpace(char c) { return whiteSpace.find(c) != std::string_view::npos; }
constexpr bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

inline std::string lower(std::string_view text)
{
    std::string lowered(text);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), [](char c) { return lower(c); });
    return lowered;
}

inline std::string upper(std::string_view text)
{
    std::string raised(text);
    std::transform(raised.begin(), raised.end(), raised.begin(), [](char c) { return upper(c); });
    return raised;
}

/// Whether the text is empty or all white space.
constexpr bool isBlank(std::string_view text)
{
    return text.find_first_not_of(whiteSpace) == std::string_view::npos;
}

/// The text without `blanks` at its start.
constexpr std::string_view trimmedStart(std::string_view text, std::string_view blanks = whiteSpace)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

/// The text without `blanks` at its end.
constexpr std::string_view trimmedEnd(std::string_view text, std::string_view blanks = whiteSpace)
{
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// The text without `blanks` at its ends.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = whiteSpace)
{
    return trimmedStart(trimmedEnd(text, blanks), blanks);
}

/// The parts of a text that white space divides; none is empty.
inline std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    for (text = trimmedStart(text); !text.empty(); text = trimmedStart(text)) {
        const std::size_t end = std::min(text.find_first_of(whiteSpace), text.size());
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return words;
}

/// The texts with `separator` between each two.
inline std::string joined(const std::vector<std::string>& texts, std::string_view separator)
{
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i)
        all.append(i == 0 ? std::string_view() : separator).append(texts[i]);
    return all;
}

} // namespace Kedrin::ModTool
