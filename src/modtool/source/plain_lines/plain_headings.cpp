#include "plain_headings.h"

#include "ascii.h"
#include "book_finder.h"
#include "book_ids.h"
#include "book_names.h"
#include "verse_starts.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view marks = " \t#*_=", blanks = " \t", behindNames = " \t,;:.-";
constexpr std::size_t maxBytes = 160;

bool isChapterWord(std::string_view word)
{
    static constexpr std::string_view words[] = {"глава", "гл", "chapter", "chap", "ch"};
    const std::string key = nameKey(word);
    return std::find(std::begin(words), std::end(words), key) != std::end(words);
}

/// A Roman number of capitals: "XIV".
std::optional<unsigned int> romanNumber(std::string_view text)
{
    constexpr std::string_view signs = "IVXLC";
    constexpr unsigned int values[] = {1, 5, 10, 50, 100};
    unsigned int sum = 0, before = 0;
    if (text.empty() || text.size() > 8 || text.find_first_not_of(signs) != std::string_view::npos)
        return std::nullopt;
    for (std::size_t i = text.size(); i-- > 0;) {
        const unsigned int value = values[signs.find(text[i])];
        if (value < before)
            sum -= value;
        else
            sum += value, before = value;
    }
    return sum;
}

/// Cuts the last word off.
std::string_view takeLastWord(std::string_view& text)
{
    text = trimmed(text, blanks);
    const std::size_t blank = text.find_last_of(blanks);
    const std::string_view word = blank == std::string_view::npos ? text : text.substr(blank + 1);
    text.remove_suffix(word.size());
    text = text.substr(0, text.find_last_not_of(behindNames) + 1);
    return trimmed(word, behindNames);
}

std::string bookCalled(std::string_view name, bool mayBeShort)
{
    return mayBeShort ? bookFinder().findShort(name) : bookFinder().find(name);
}

/// "глава 1", "Битие 1", "Битие, глава 1", "1 глава"
std::optional<PlainHeading> chapterHeading(std::string_view core, bool mayBeShort)
{
    std::string_view name = core;
    const std::string_view last = takeLastWord(name);
    if (const auto number = plainNumber(name); number && isChapterWord(last))
        return PlainHeading{"", "", number};
    std::string_view beforeWord = name;
    const bool hasWord = !name.empty() && isChapterWord(takeLastWord(beforeWord));
    const auto number = hasWord && !plainNumber(last) ? romanNumber(last) : plainNumber(last);
    if (!number || name.empty())
        return std::nullopt;
    if (hasWord)
        name = beforeWord;
    if (name.empty())
        return PlainHeading{"", "", number};
    const std::string osis = bookCalled(name, mayBeShort);
    return osis.empty() ? std::nullopt : std::optional(PlainHeading{osis, name, number});
}

} // namespace

std::size_t headingLevel(std::string_view line) { return std::min(line.find_first_not_of('#'), line.size()); }

std::optional<PlainHeading> plainHeading(std::string_view line)
{
    const bool isMarked = line.starts_with('#');
    const std::string_view core = trimmed(line, marks);
    if (core.empty() || line.size() > maxBytes)
        return std::nullopt;
    if (std::string osis = bookFinder().find(core); !osis.empty())
        return PlainHeading{std::move(osis), core, std::nullopt};
    if (auto chapter = chapterHeading(core, isMarked))
        return chapter;
    std::string osis = bookCalled(core, isMarked);
    return osis.empty() ? std::nullopt : std::optional(PlainHeading{std::move(osis), core, std::nullopt});
}

std::string bookOfFileName(const std::string& path)
{
    const std::string stem = std::filesystem::path(path).stem().string();
    if (std::string osis = bookFinder().find(stem); !osis.empty())
        return osis;
    const std::size_t digits = std::min(stem.find_first_not_of("0123456789"), stem.size());
    const auto number = plainNumber(std::string_view(stem).substr(0, digits));
    if (digits == stem.size())
        return number && *number >= 1 && *number <= protestantBooksCount ? osisOfProtestant(*number) : "";
    return digits == 0 ? "" : bookFinder().find(std::string_view(stem).substr(digits));
}

} // namespace Kedrin::ModTool
