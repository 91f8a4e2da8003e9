#include "usfm_attributes.h"

#include "usfm_markers.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// Whether a text is attributes with their names: `lemma="x" strong='H1'`.
bool areAttributes(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    constexpr std::string_view nameBytes = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_";
    bool hasAny = false;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        if (text.empty())
            return hasAny;
        const std::size_t nameEnd = std::min(text.find_first_not_of(nameBytes), text.size());
        const std::size_t equals = text.find_first_not_of(blanks, nameEnd);
        if (nameEnd == 0 || equals == std::string_view::npos || text[equals] != '=')
            return false;
        text.remove_prefix(equals + 1);
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        const std::size_t end = text.empty() || (text[0] != '"' && text[0] != '\'') ? std::string_view::npos
                                                                                    : text.find(text[0], 1);
        if (end == std::string_view::npos)
            return false;
        text.remove_prefix(end + 1);
        hasAny = true;
    }
}

} // namespace

std::size_t attributesBegin(std::string_view text, std::string_view endMarker)
{
    if (endMarker.empty())
        return std::string_view::npos;
    const std::size_t bar = hasUnnamedAttribute(endMarker) ? text.find('|') : text.rfind('|');
    const bool isAny = hasUnnamedAttribute(endMarker);
    return bar != std::string_view::npos && (isAny || areAttributes(text.substr(bar + 1)))
               ? bar
               : std::string_view::npos;
}

} // namespace Kedrin::ModTool
