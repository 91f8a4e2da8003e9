#include "stray_markers.h"

#include "ascii.h"
#include "usfm_markers.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <optional>

namespace Kedrin::ModTool {

namespace {

bool isNameByte(char c) { return isAsciiLetter(c) || isAsciiDigit(c) || c == '-'; }

bool endsWithLetterOrDigit(std::string_view utf8)
{
    auto i = static_cast<std::int32_t>(utf8.size());
    UChar32 codePoint = -1;
    if (i != 0)
        U8_PREV(reinterpret_cast<const std::uint8_t*>(utf8.data()), 0, i, codePoint);
    return codePoint >= 0 && u_isalnum(codePoint);
}

/// A marker as written.
struct Marker
{
    std::string_view name;
    std::size_t byteCount; ///< including the backslash and the star or space after it
    bool isEnd;
};

/// The known marker at the start of the text: `\nd `, `\+nd*`, `\q1` before another backslash or at the end.
std::optional<Marker> markerAt(std::string_view text)
{
    const std::size_t begin = text.starts_with("\\+") ? 2 : 1;
    std::size_t end = begin;
    while (end < text.size() && isNameByte(text[end]))
        ++end;
    const std::string_view name = text.substr(begin, end - begin);
    if (!isKnownMarker(name))
        return std::nullopt;
    if (end == text.size() || text[end] == '\\')
        return Marker{name, end, false};
    if (text[end] == '*' || isWhiteSpace(text[end]))
        return Marker{name, end + 1, text[end] == '*'};
    return std::nullopt;
}

bool hasEnd(std::string_view text, std::string_view name)
{
    const std::string end = std::string(name) + '*';
    return text.find('\\' + end) != std::string_view::npos ||
           text.find("\\+" + end) != std::string_view::npos;
}

/// Whether a marker may follow `before`, the part of the same word in front of it: not in a file path, and a
/// character style inside a word only if it is also closed.
bool mayStand(const Marker& marker, std::string_view before, std::string_view behind)
{
    const bool isDrive = before.size() == 2 && isAsciiLetter(before[0]) && before[1] == ':';
    if (isDrive || before.find('\\') != std::string_view::npos)
        return false;
    return marker.isEnd || isBreak(marker.name) || !endsWithLetterOrDigit(before) ||
           hasEnd(behind, marker.name);
}

} // namespace

std::string withoutMarkers(std::string_view text, unsigned int& count)
{
    std::string rest;
    rest.reserve(text.size());
    std::size_t word = 0; // where the word begins in `rest`
    while (!text.empty()) {
        const auto marker = text.front() == '\\' ? markerAt(text) : std::nullopt;
        if (marker &&
            mayStand(*marker, std::string_view(rest).substr(word), text.substr(marker->byteCount))) {
            ++count;
            rest += !marker->isEnd && isBreak(marker->name) ? " " : "";
            text.remove_prefix(marker->byteCount);
        } else {
            rest += text.front();
            text.remove_prefix(1);
        }
        if (!rest.empty() && isWhiteSpace(rest.back()))
            word = rest.size();
    }
    return rest;
}

} // namespace Kedrin::ModTool
