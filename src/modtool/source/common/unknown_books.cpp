#include "unknown_books.h"

#include "book_finder.h"
#include "errors.h"
#include "global_books.h"
#include "letters.h"
#include "messages.h"

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

std::string idOfUnknownBook(std::string_view name)
{
    constexpr std::size_t maxBytes = 60;
    std::string id(name.substr(0, maxBytes));
    if (name.size() > maxBytes)
        while (!id.empty() && (static_cast<unsigned char>(name[id.size()]) & 0xC0) == 0x80)
            id.pop_back(); // up to the beginning of a character
    std::replace_if(
        id.begin(), id.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, ' ');
    return id.empty() || globalIDOf(id) ? id + '?' : id;
}

std::string nearestBook(std::string_view name)
{
    constexpr std::uint64_t fewestLetters = 3;
    const std::string nearest = countLetters(name) < fewestLetters ? "" : bookFinder().nearest(name);
    return nearest.empty() ? "" : message(" (did you mean %s?)", nearest);
}

void refuseUnknownBooks(const SourceBible& bible)
{
    constexpr std::size_t most = 20;
    std::vector<bool> hasVerses(bible.books.size(), false);
    for (const SourceVerse& verse : bible.verses)
        hasVerses[verse.book] = true;
    std::string complaints;
    std::size_t count = 0;
    for (const UnknownBook& unknown : bible.unknownBooks)
        if (hasVerses[unknown.book] && count++ < most)
            complaints += (complaints.empty() ? "" : "\n") + unknown.complaint;
    if (count > most)
        complaints += '\n' + message("  and %s", counted(count - most, "more book", "more books"));
    if (count != 0)
        throw CBuildError(complaints);
}

} // namespace Kedrin::ModTool
