#include "usfm_letters.h"

#include "letter_proof.h"
#include "usfm_markers.h"
#include "usfm_tokens.h"
#include "verse_number.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view digits = "0123456789";

std::size_t nameBytes(std::string_view text)
{
    if ((text.starts_with('c') || text.starts_with('v')) && text.find_first_of(digits) == 1)
        return 1;
    const std::size_t end =
        text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_");
    return std::min(end, text.size());
}

/// The space or line end that belongs to a marker, and spaces after it.
std::size_t blankBytes(std::string_view text)
{
    const std::size_t own = text.starts_with("\r\n") ? 2 : text.find_first_of(" \t\r\n") == 0 ? 1 : 0;
    return std::min(text.find_first_not_of(" \t", own), text.size());
}

std::string_view wordOf(std::string_view text)
{
    text = text.substr(0, text.find_first_of(" \t\r\n\\"));
    return text.substr(0, text.find("\u00A0"));
}

/// Length of the marker at the start, including its star or the number or code that belongs to it.
std::size_t markerBytes(std::string_view text)
{
    std::size_t end = text.starts_with("\\+") ? 2 : 1;
    const std::string_view name = text.substr(end, nameBytes(text.substr(end)));
    end += name.size();
    if (text.substr(end).starts_with('*'))
        return end + 1;
    const std::string_view base = baseName(name);
    if (base != "c" && base != "v" && base != "id")
        return end;
    end += blankBytes(text.substr(end));
    const std::string_view word = wordOf(text.substr(end));
    return end + (base == "id" ? word.size() : verseNumberBytes(word));
}

} // namespace

std::uint64_t proveUsfmLetters(const std::string& fileName, std::string_view utf8, std::string_view taken)
{
    CLetterProof proof(fileName, taken);
    std::size_t line = 1;
    while (!utf8.empty()) {
        const bool isMarker = utf8.front() == '\\';
        const std::size_t byteCount = isMarker ? markerBytes(utf8) : std::min(utf8.find('\\'), utf8.size());
        const std::string_view part = utf8.substr(0, byteCount);
        if (!isMarker)
            proof.compare(part, line);
        line += static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n'));
        utf8.remove_prefix(byteCount);
    }
    return proof.finish(line);
}

} // namespace Kedrin::ModTool
