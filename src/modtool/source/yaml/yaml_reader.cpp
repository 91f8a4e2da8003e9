#include "yaml_reader.h"

#include "ascii.h"
#include "json_reader.h"
#include "yaml_document.h"

#include <algorithm>
#include <array>

namespace Kedrin::ModTool {

namespace {

/// The key with which a line of a mapping begins, without quotation marks, or "".
std::string keyOf(std::string_view line)
{
    while (line.starts_with("- "))
        line = trimmedStart(line.substr(2));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || (colon + 1 < line.size() && line[colon + 1] != ' '))
        return "";
    return lower(trimmed(line.substr(0, colon), " \"'"));
}

/// Whether the lines that are indented deeper are a text, literal or folded.
bool beginsBlock(std::string_view line)
{
    const std::size_t sign = line.find_last_of("|>");
    return sign != std::string_view::npos && line.substr(0, sign).ends_with(": ") &&
           line.find_first_not_of("+-0123456789", sign + 1) == std::string_view::npos;
}

bool isKnownKey(const std::string& key)
{
    constexpr std::array<std::string_view, 9> keys{"books", "book",         "chapters", "chapter", "verses",
                                                   "verse", "verse_number", "text",     "number"};
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

} // namespace

SourceBible readYaml(const std::string& fileName, std::string_view utf8)
{
    CJsonReader reader("YAML");
    const CYamlDocument document(fileName, utf8);
    reader.read(document.tree(), [&](std::string_view taken) { return document.proveLetters(taken); });
    return reader.finish(fileName);
}

bool isYaml(std::string_view utf8)
{
    constexpr unsigned int firstLines = 100;
    constexpr std::size_t none = std::string_view::npos;
    bool hasKey = false;
    std::size_t blockIndent = none; ///< of the key whose text is passed over
    for (unsigned int i = 0; i < firstLines && !utf8.empty() && !hasKey; ++i) {
        const std::size_t end = std::min(utf8.find_first_of("\r\n"), utf8.size());
        const std::size_t indent = utf8.substr(0, end).find_first_not_of(' ');
        const std::string_view line = trimmed(utf8.substr(0, end));
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
        if (blockIndent != none && indent > blockIndent)
            continue;
        if (line.empty() || line.starts_with('#') || line.starts_with('%') || line == "---" || line == "-")
            continue;
        const std::string key = keyOf(line);
        if (key.empty())
            return false;
        hasKey = isKnownKey(key);
        blockIndent = beginsBlock(line) ? indent : none;
    }
    return hasKey;
}

} // namespace Kedrin::ModTool
