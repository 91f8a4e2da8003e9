#include "stray_markers.h"

namespace Kedrin::ModTool {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// How many bytes the marker at the front has, with its star or its blank; 0 where there is none.
std::size_t markerBytes(std::string_view text)
{
    std::size_t end = text.starts_with("\\+") ? 2 : 1;
    const std::size_t name = end;
    while (end < text.size() && isLetter(text[end]))
        ++end;
    if (end == name)
        return 0;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return end < text.size() && (text[end] == '*' || text[end] == ' ') ? end + 1 : end;
}

} // namespace

std::string withoutMarkers(std::string_view text, unsigned int& count)
{
    std::string rest;
    rest.reserve(text.size());
    while (!text.empty()) {
        const std::size_t marker = text.front() == '\\' ? markerBytes(text) : 0;
        count += marker != 0;
        if (marker == 0)
            rest += text.front();
        text.remove_prefix(marker == 0 ? 1 : marker);
    }
    return rest;
}

} // namespace Kedrin::ModTool
