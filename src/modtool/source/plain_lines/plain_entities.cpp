#include "plain_entities.h"

#include "html_entities.h"

#include <unicode/utf8.h>

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// What stands between '&' and ';' as a character; "" for none, and for a control character.
std::string meaningOf(std::string_view reference)
{
    const auto character = referencedCharacter(reference);
    if (!character || *character < U' ')
        return "";
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<std::uint32_t>(*character));
    return std::string(bytes, length);
}

} // namespace

std::string withoutEntities(std::string_view utf8)
{
    constexpr std::size_t maxBytes = 12; // of a name with its '&' and ';'
    std::string text;
    while (!utf8.empty()) {
        const std::size_t begin = std::min(utf8.find('&'), utf8.size());
        text += utf8.substr(0, begin);
        utf8.remove_prefix(begin);
        const std::size_t end = utf8.substr(0, maxBytes).find(';');
        const std::string meaning = end == std::string_view::npos ? "" : meaningOf(utf8.substr(1, end - 1));
        if (!meaning.empty()) {
            text += meaning;
            utf8.remove_prefix(end + 1);
        } else if (!utf8.empty()) {
            text += '&';
            utf8.remove_prefix(1);
        }
    }
    return text;
}

} // namespace Kedrin::ModTool
