#include "source_findings.h"

#include "ascii.h"
#include "messages.h"
#include "text_columns.h"

#include <algorithm>
#include <numeric>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxNamed = 200;   ///< there are 151 psalms
constexpr std::size_t maxSaid = 50;     ///< lines on how the source was understood
constexpr std::size_t shownBytes = 120; ///< of a text

struct Wording
{
    const char* label;
    const char* singular;
    const char* plural;
};

/// Marks a text with singular and plural for translation.
constexpr Wording wording(const char* label, const char* singular, const char* plural)
{
    return {label, singular, plural};
}

// In the order of ReaderRule.
constexpr std::array<Wording, static_cast<std::size_t>(ReaderRule::count)> wordings{
    wording(translatable("joined"), "range of verses, with the text in the first",
            "ranges of verses, with the text in the first"),
    wording(translatable("joined"), "part of a verse", "parts of verses"),
    wording(translatable("joined"), "verse given more than once", "verses given more than once"),
    wording(translatable("left out"), "verse repeated word for word", "verses repeated word for word"),
    wording(translatable("joined"), "verse 0, put before the next verse",
            "verses 0, put before the next verse"),
    wording(translatable("joined"), "psalm title, put before its text",
            "psalm titles, put before their text"),
    wording(translatable("joined"), "verse without a number, with the verse before it",
            "verses without a number, with the verses before them"),
    wording(translatable("interpreted"), "chapter without a number as the next one",
            "chapters without a number as the next ones"),
    wording(translatable("interpreted"), "book without a number or code by its name",
            "books without a number or code by their names"),
    wording(translatable("interpreted"), "Greek Esther or Daniel as the book itself",
            "Greek Esther and Daniel as the books themselves"),
    wording(translatable("kept"), "text of an unknown marker", "texts of unknown markers"),
    wording(translatable("unmarked"), "quotation tagged in the source", "quotations tagged in the source"),
    wording(translatable("left out"), "note", "notes"),
    wording(translatable("left out"), "title", "titles"),
    wording(translatable("left out"), "variant reading", "variant readings"),
    wording(translatable("left out"), "number in another numbering", "numbers in another numbering"),
    wording(translatable("left out"), "chapter or verse number within the text",
            "chapter or verse numbers within the text"),
    wording(translatable("left out"), "figure or index entry", "figures or index entries"),
    wording(translatable("left out"), "text before a psalm's first verse, perhaps its title",
            "texts before a psalm's first verse, perhaps its title"),
    wording(translatable("left out"), "text outside the verses", "texts outside the verses"),
    wording(translatable("closed"), "note without an end, at the end of its paragraph",
            "notes without an end, at the end of their paragraphs"),
    wording(translatable("interpreted"), "book by the name of its file", "books by the names of their files"),
    wording(translatable("left out"), "field of a further column", "fields of further columns"),
    wording(translatable("left out"), "text of another table", "texts of other tables"),
    Wording{"", "", ""}, // attributes, tags, metadata and positions have no line
    Wording{"", "", ""},
    Wording{"", "", ""},
    Wording{"", "", ""},
};

} // namespace

void SourceFindings::say(const char* label, const std::string& text)
{
    std::string line = padded(tr(label), labelColumns) + text + '\n';
    if (m_said.size() < maxSaid && std::find(m_said.begin(), m_said.end(), line) == m_said.end())
        m_said.push_back(std::move(line));
}

void SourceFindings::addPsalmText(const std::string& position, std::string_view utf8)
{
    if (m_psalmTexts.size() == maxNamed)
        return;
    m_psalmTexts.emplace_back(position, "");
    extendPsalmText(utf8);
}

void SourceFindings::extendPsalmText(std::string_view utf8)
{
    if (m_psalmTexts.empty())
        return;
    std::string& text = m_psalmTexts.back().second;
    while (text.size() <= shownBytes && !utf8.empty()) {
        const std::size_t wordEnd = std::min(utf8.find_first_of(whiteSpace), utf8.size());
        text += utf8.substr(0, wordEnd);
        const std::size_t next = std::min(utf8.find_first_not_of(whiteSpace, wordEnd), utf8.size());
        text += next != wordEnd && !text.empty() ? " " : "";
        utf8.remove_prefix(next);
    }
}

std::string SourceFindings::psalmTextLines() const
{
    std::string lines;
    for (const auto& [position, text] : m_psalmTexts) {
        lines += std::string(labelColumns, ' ') + position + ": " +
                 inQuotes(trimmedEnd(text, " "), shownBytes) + '\n';
    }
    if (m_psalmTexts.size() == maxNamed)
        lines += std::string(labelColumns, ' ') + "...\n";
    return lines;
}

std::string SourceFindings::text() const
{
    std::string lines;
    for (const std::string& line : m_said)
        lines += line;
    for (std::size_t i = 0; i < wordings.size(); ++i) {
        const auto what = static_cast<ReaderRule>(i);
        const Tally& found = m_found[i];
        if (found.count == 0 || !hasLine(what))
            continue;
        lines += padded(tr(wordings[i].label), labelColumns) +
                 message("%s, first at %s", counted(found.count, wordings[i].singular, wordings[i].plural),
                         found.firstPosition) +
                 '\n';
        if (what == ReaderRule::psalmText)
            lines += psalmTextLines();
    }
    return lines;
}

std::vector<std::string> SourceFindings::counts(std::string_view label) const
{
    std::vector<std::string> found;
    for (std::size_t i = 0; i < wordings.size(); ++i)
        if (wordings[i].label == label && m_found[i].count != 0)
            found.push_back(counted(m_found[i].count, wordings[i].singular, wordings[i].plural));
    return found;
}

std::uint64_t SourceFindings::letters() const
{
    return std::accumulate(m_letters.begin(), m_letters.end(), std::uint64_t{0});
}

std::vector<std::string> SourceFindings::letterParts() const
{
    std::vector<std::string> parts;
    for (std::size_t i = 0; i < wordings.size(); ++i) {
        if (m_letters[i] == 0)
            continue;
        switch (static_cast<ReaderRule>(i)) {
        case ReaderRule::metadata:
            parts.push_back(message("%s in titles and metadata of the source", m_letters[i]));
            break;
        case ReaderRule::position:
            parts.push_back(message("%s in names of books, numbers and marks of lines", m_letters[i]));
            break;
        case ReaderRule::attribute:
            parts.push_back(message("%s in marker attributes", m_letters[i]));
            break;
        case ReaderRule::tag:
            parts.push_back(message("%s in tags within texts", m_letters[i]));
            break;
        case ReaderRule::unknownMarker:
            parts.push_back(message("%s in marker names", m_letters[i]));
            break;
        default:
            parts.push_back(message("%s in %s", m_letters[i],
                                    counted(m_found[i].count, wordings[i].singular, wordings[i].plural)));
        }
    }
    return parts;
}

} // namespace Kedrin::ModTool
