#include "verse_number.h"

#include "ascii.h"
#include "module_format.h"
#include "source_bible.h"

#include <algorithm>
#include <charconv>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view rangeSigns[] = {"-", "\u2013", "\u2014", "\u2011", ","};

/// Length in bytes of the small Latin or Cyrillic letter at the start of the text; 0 for none.
std::size_t partLetterBytes(std::string_view text)
{
    if (text.empty())
        return 0;
    if (text.front() >= 'a' && text.front() <= 'z')
        return 1;
    const std::string_view letter = text.substr(0, 2);
    return letter >= "\u0430" && letter <= "\u044F" ? letter.size() : 0;
}

/// Removes a number and the letter of a part from the start.
std::optional<unsigned int> takeNumber(std::string_view& text, bool& isPart)
{
    unsigned int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || value > maxSourceNumber)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    const std::size_t letterBytes = partLetterBytes(text);
    isPart = isPart || letterBytes != 0;
    text.remove_prefix(letterBytes);
    return value;
}

} // namespace

std::optional<VerseNumber> parseVerseNumber(std::string_view text)
{
    text = trimmedEnd(trimmedStart(text), ".:;,)] \t\r\n");
    VerseNumber number{0, 0, false};
    bool lastIsPart = false;
    const auto first = takeNumber(text, number.isPart);
    if (!first)
        return std::nullopt;
    number.first = number.last = *first;
    while (!text.empty()) {
        const auto* between = std::find_if(std::begin(rangeSigns), std::end(rangeSigns),
                                           [&](std::string_view sign) { return text.starts_with(sign); });
        if (between == std::end(rangeSigns))
            return std::nullopt;
        text.remove_prefix(between->size());
        const auto last = takeNumber(text, lastIsPart);
        if (!last || *last < number.last)
            return std::nullopt;
        number.last = *last;
    }
    return number;
}

std::size_t verseNumberBytes(std::string_view word)
{
    constexpr std::size_t maxBytes = 40; // of a list of verses
    if (parseVerseNumber(word))
        return word.size();
    for (std::size_t end = std::min(word.size(), maxBytes); end > 0; --end)
        if (isAsciiDigit(word[end - 1]) && (end == word.size() || !isAsciiDigit(word[end])) &&
            parseVerseNumber(word.substr(0, end)))
            return end;
    return 0;
}

} // namespace Kedrin::ModTool
