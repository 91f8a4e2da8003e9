#include "verse_starts.h"

#include "ascii.h"
#include "module_format.h"

#include <algorithm>
#include <charconv>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view openings = " \t*[(_", closings = "])*_", separators = ":.,";
constexpr std::size_t maxBookBytes = 80;
constexpr std::size_t maxNumberBytes = 40; ///< of a list of verses

std::size_t digitsEnd(std::string_view line, std::size_t begin)
{
    return std::min(line.find_first_not_of("0123456789", begin), line.size());
}

/// Reads the number of a verse, and of a chapter before it, at a place of the line.
std::optional<VerseStart> numbersAt(std::string_view line, std::size_t begin, bool hasChapter)
{
    VerseStart start{};
    std::size_t verse = begin;
    if (hasChapter) {
        const std::size_t end = digitsEnd(line, begin);
        const auto chapter = plainNumber(line.substr(begin, end - begin));
        if (!chapter || end == line.size() || separators.find(line[end]) == std::string_view::npos)
            return std::nullopt;
        start.chapter = *chapter;
        verse = end + 1;
    }
    if (verse == line.size() || !isAsciiDigit(line[verse]))
        return std::nullopt;
    const std::size_t end = std::min(line.find_first_of(" \t])*_#", verse), line.size());
    const auto number =
        end - verse <= maxNumberBytes ? parseVerseNumber(line.substr(verse, end - verse)) : std::nullopt;
    if (!number)
        return std::nullopt;
    start.verse = *number;
    const std::size_t marksEnd = std::min(line.find_first_not_of(closings, end), line.size());
    start.place = line.substr(0, marksEnd);
    start.text = trimmed(line.substr(marksEnd));
    return start;
}

std::optional<VerseStart> reference(std::string_view line)
{
    const std::size_t last = std::min(line.size(), maxBookBytes);
    for (std::size_t i = 1; i < last; ++i) {
        if (!isAsciiDigit(line[i]) || isAsciiDigit(line[i - 1]))
            continue;
        const std::string_view book = trimmed(line.substr(0, i), openings);
        if (book.empty())
            continue;
        if (auto start = numbersAt(line, i, true)) {
            start->book = book;
            return start;
        }
    }
    return std::nullopt;
}

std::optional<VerseStart> hashed(std::string_view line)
{
    if (!line.starts_with('#'))
        return std::nullopt;
    auto start = numbersAt(line, 1, true);
    if (!start || !line.substr(start->place.size()).starts_with('#'))
        return std::nullopt;
    start->place = line.substr(0, start->place.size() + 1);
    start->text = trimmed(line.substr(start->place.size()));
    return start;
}

} // namespace

std::optional<unsigned int> plainNumber(std::string_view digits)
{
    unsigned int value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stop != end || value > maxSourceNumber)
        return std::nullopt;
    return value;
}

std::optional<VerseStart> verseStart(std::string_view line, VerseForm form)
{
    if (form == VerseForm::hashed)
        return hashed(line);
    if (form == VerseForm::reference)
        return reference(line);
    const std::size_t begin = std::min(line.find_first_not_of(openings), line.size());
    return numbersAt(line, begin, form == VerseForm::chapterVerse);
}

} // namespace Kedrin::ModTool
