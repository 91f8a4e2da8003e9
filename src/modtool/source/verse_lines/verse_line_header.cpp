#include "verse_line_header.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace Kedrin::ModTool {

namespace {

/// Key and value of a line that begins with "#", or nullopt for a comment without a colon.
std::optional<std::pair<std::string_view, std::string_view>> fieldOf(std::string_view line)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    return std::pair(trimmed(line.substr(1, colon - 1), " "), trimmed(line.substr(colon + 1), " "));
}

bool isKey(std::string_view name)
{
    constexpr std::array<std::string_view, 7> keys{"title",         "short",       "abbr", "copyright",
                                                   "versification", "differences", "book"};
    return std::find(keys.begin(), keys.end(), name) != keys.end();
}

} // namespace

void CVerseLineHeader::take(std::string_view line)
{
    const auto field = fieldOf(line);
    if (!field)
        return;
    const auto& [key, value] = *field;
    if (key == "title")
        m_info.fullTitle = value;
    else if (key == "short")
        m_info.shortTitle = value;
    else if (key == "abbr")
        m_info.abbreviatedTitle = value;
    else if (key == "copyright")
        m_info.copyright.emplace_back(value);
    else if (key == "versification")
        m_versification = value;
    else if (key == "differences")
        m_info.differences = value;
    else if (key == "book")
        takeBook(value);
}

void CVerseLineHeader::takeBook(std::string_view fields)
{
    std::array<std::string_view, 4> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t tab = fields.find('\t');
        if ((tab == std::string_view::npos) != (i + 1 == parts.size()))
            throw CBuildError(tr("book titles must be an id and three titles, separated by tabs"));
        parts[i] = fields.substr(0, tab);
        fields.remove_prefix(std::min(fields.size(), parts[i].size() + 1));
    }
    if (m_titles.size() >= maxSourceBooks && !m_titles.contains(parts[0]))
        throw CBuildError(message("more than %s books", maxSourceBooks));
    m_titles[std::string(parts[0])] = {std::string(parts[1]), std::string(parts[2]), std::string(parts[3])};
}

void CVerseLineHeader::giveTo(SourceBible& bible) const
{
    bible.info = m_info;
    bible.info.keepsTitles = !m_titles.empty();
    bible.versification = m_versification;
    if (m_titles.empty())
        return;
    for (const std::string& book : bible.books) {
        const auto known = m_titles.find(book);
        bible.bookTitles.push_back(known == m_titles.end() ? BookTitles() : known->second);
    }
}

bool beginsWithHeader(std::string_view utf8)
{
    bool hasKey = false;
    while (!utf8.empty()) {
        const std::string_view line = utf8.substr(0, utf8.find('\n'));
        utf8.remove_prefix(std::min(line.size() + 1, utf8.size()));
        if (line.starts_with('#')) {
            const auto field = fieldOf(line);
            hasKey = hasKey || (field && isKey(field->first));
        } else if (!trimmed(line, " \t\r").empty()) {
            return hasKey && std::count(line.begin(), line.end(), '\t') >= 3;
        }
    }
    return false;
}

std::string headerLine(std::string_view key, std::string_view value)
{
    return "# " + std::string(key) + (value.empty() ? ":" : ": ") + std::string(value) + '\n';
}

} // namespace Kedrin::ModTool
