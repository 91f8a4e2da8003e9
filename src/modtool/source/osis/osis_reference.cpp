#include "osis_reference.h"

#include "ascii.h"
#include "global_books.h"
#include "module_format.h"
#include "source_bible.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// "Jude.5": in such a book the chapter may be omitted.
std::optional<OsisReference> inBookOfOneChapter(std::string_view text, std::size_t point, bool isPart)
{
    const auto global = globalIDOf(text.substr(0, point));
    if (!global || globalBooks()[*global].verseCounts.size() != 1)
        return std::nullopt;
    const auto verse = parseVerseNumber(text.substr(point + 1));
    if (!verse)
        return std::nullopt;
    return OsisReference{text.substr(0, point), 1, {verse->first, verse->last, verse->isPart || isPart}};
}

std::optional<OsisReference> parseReference(std::string_view text)
{
    if (const std::size_t colon = text.find(':'); colon != std::string_view::npos)
        text.remove_prefix(colon + 1);
    const std::size_t part = text.find('!');
    text = text.substr(0, part);
    const std::size_t first = text.find('.');
    const std::size_t second = first == std::string_view::npos ? first : text.find('.', first + 1);
    if (second == std::string_view::npos || first == 0)
        return inBookOfOneChapter(text, first, part != std::string_view::npos);
    std::string_view verseText = text.substr(second + 1);
    const auto chapter = parseVerseNumber(text.substr(first + 1, second - first - 1));
    const auto verse = parseVerseNumber(verseText.substr(0, verseText.find('.')));
    if (!chapter || !verse || chapter->first != chapter->last)
        return std::nullopt;
    return OsisReference{text.substr(0, first),
                         chapter->first,
                         {verse->first, verse->last, verse->isPart || part != std::string_view::npos}};
}

/// The number of the last verse of a range that starts with `first`; nothing if `text` is not a verse.
std::optional<unsigned int> lastVerse(std::string_view text, const OsisReference& first)
{
    if (const auto last = parseReference(text)) {
        const bool isInChapter = last->chapter == first.chapter && last->book == first.book;
        return isInChapter ? std::max(first.verse.first, last->verse.last) : maxSourceNumber;
    }
    const auto number = parseVerseNumber(text);
    return number ? std::optional(std::max(first.verse.first, number->last)) : std::nullopt;
}

} // namespace

std::optional<OsisReference> parseOsisReferences(std::string_view list)
{
    list = trimmed(list, " ");
    auto reference = parseReference(list.substr(0, list.find_first_of(" -")));
    const std::size_t sign = list.find_last_of(" -");
    if (!reference || sign == std::string_view::npos)
        return reference;
    if (const auto last = lastVerse(list.substr(sign + 1), *reference))
        reference->verse.last = *last;
    return reference;
}

std::optional<unsigned int> chapterOf(std::string_view reference)
{
    const std::size_t point = reference.find('.');
    const auto number =
        point == std::string_view::npos ? std::nullopt : parseVerseNumber(reference.substr(point + 1));
    return number ? std::optional(number->first) : std::nullopt;
}

} // namespace Kedrin::ModTool
