#include "verse_line_header.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"

#include <array>

namespace Kedrin::ModTool {

void CVerseLineHeader::take(std::string_view line)
{
    line.remove_prefix(1);
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos)
        return;
    const std::string_view key = trimmed(line.substr(0, colon), " ");
    const std::string_view value = trimmed(line.substr(colon + 1), " ");
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

std::string headerLine(std::string_view key, std::string_view value)
{
    return "# " + std::string(key) + (value.empty() ? ":" : ": ") + std::string(value) + '\n';
}

} // namespace Kedrin::ModTool
