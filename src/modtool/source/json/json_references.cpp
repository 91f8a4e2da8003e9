#include "json_references.h"

#include "ascii.h"
#include "book_finder.h"
#include "global_books.h"
#include "module_format.h"

#include <algorithm>
#include <charconv>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t digitsOfChapter = 3; // and of a verse
constexpr std::size_t longestReference = 200;

/// Of digits only: a book, and three digits each for chapter and verse.
std::optional<JsonReference> referenceOfDigits(std::string_view text)
{
    const std::size_t bookBytes = text.size() - 2 * digitsOfChapter;
    const auto chapter = parseJsonNumber(text.substr(bookBytes, digitsOfChapter));
    const auto verse = parseVerseNumber(text.substr(bookBytes + digitsOfChapter));
    if (!chapter || !verse)
        return std::nullopt;
    return JsonReference{text.substr(0, bookBytes), *chapter, *verse};
}

bool hasOneChapter(std::string_view book)
{
    const auto global = globalIDOf(bookFinder().find(book));
    return global && globalBooks()[*global].verseCounts.size() == 1;
}

/// @param signs  those that may stand before the verse
std::optional<JsonReference> referenceWithChapter(std::string_view text, std::string_view signs)
{
    const std::size_t beforeVerse = text.find_last_of(signs);
    if (beforeVerse == std::string_view::npos)
        return std::nullopt;
    const std::string_view head = trimmed(text.substr(0, beforeVerse));
    const std::size_t beforeChapter = head.find_last_of(" :.");
    if (beforeChapter == std::string_view::npos || beforeChapter == 0)
        return std::nullopt;
    const auto chapter = parseJsonNumber(head.substr(beforeChapter + 1));
    const auto verse = parseVerseNumber(text.substr(beforeVerse + 1));
    if (!chapter || !verse)
        return std::nullopt;
    return JsonReference{trimmed(head.substr(0, beforeChapter)), *chapter, *verse};
}

/// Reads "Jn 3,16"; in "Jude 2,3" both numbers are verses.
std::optional<JsonReference> referenceWithComma(std::string_view text)
{
    const auto reference = referenceWithChapter(text, ",");
    return reference && reference->chapter != 1 && hasOneChapter(reference->book) ? std::nullopt : reference;
}

std::optional<JsonReference> referenceInBookOfOneChapter(std::string_view text)
{
    const std::size_t beforeVerse = text.find_last_of(" :.");
    if (beforeVerse == std::string_view::npos)
        return std::nullopt;
    const std::string_view book = trimmed(text.substr(0, beforeVerse));
    const auto verse = parseVerseNumber(text.substr(beforeVerse + 1));
    if (!verse || !hasOneChapter(book))
        return std::nullopt;
    return JsonReference{book, 1, *verse};
}

} // namespace

std::string_view wholeNumber(std::string_view text)
{
    text = trimmed(text);
    const std::size_t point = std::min(text.find('.'), text.size());
    const bool isWhole = point > 0 && point + 1 < text.size() &&
                         std::all_of(text.begin(), text.begin() + point, isAsciiDigit) &&
                         text.find_first_not_of('0', point + 1) == std::string_view::npos;
    return isWhole ? text.substr(0, point) : text;
}

std::optional<VerseNumber> parseJsonVerse(std::string_view text)
{
    return parseVerseNumber(wholeNumber(text));
}

std::optional<unsigned int> parseJsonNumber(std::string_view text)
{
    unsigned int value = 0;
    text = wholeNumber(text);
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || stop != text.data() + text.size() || value > maxSourceNumber)
        return std::nullopt;
    return value;
}

std::optional<JsonReference> parseJsonReference(std::string_view text)
{
    text = trimmedEnd(wholeNumber(text), ".,:; \t\r\n");
    if (text.empty() || text.size() > longestReference)
        return std::nullopt;
    if (std::all_of(text.begin(), text.end(), isAsciiDigit))
        return text.size() >= 7 && text.size() <= 9 ? referenceOfDigits(text) : std::nullopt;
    auto reference = referenceWithChapter(text, ":.");
    if (!reference)
        reference = referenceWithComma(text);
    return reference ? reference : referenceInBookOfOneChapter(text);
}

bool isLikeReference(std::string_view key)
{
    key = trimmed(key);
    return std::any_of(key.begin(), key.end(), isAsciiDigit) &&
           (isAsciiDigit(key.front()) || key.find_first_of(" :.,") != std::string_view::npos);
}

} // namespace Kedrin::ModTool
