#include "source_findings.h"

#include "ut_utils.h"

namespace Kedrin::ModTool {

namespace {

struct Wording
{
    const char* label;
    const char* singular;
    const char* plural;
};

// In the order of ReaderRule.
constexpr std::array<Wording, static_cast<std::size_t>(ReaderRule::count)> wordings{{
    {"joined", "range of verses, its text at the first", "ranges of verses, their text at the first"},
    {"joined", "part of a verse", "parts of verses"},
    {"joined", "verse given again", "verses given again"},
    {"left out", "verse repeated word for word", "verses repeated word for word"},
    {"joined", "verse 0, put before the next verse", "verses 0, put before the next verse"},
    {"joined", "psalm title, put before its text", "psalm titles, put before their text"},
    {"taken", "Greek Esther or Daniel for the book itself",
     "Greek Esther and Daniel for the books themselves"},
    {"kept", "text of an unknown marker", "texts of unknown markers"},
    {"without sign", "quotation that the source marks", "quotations that the source marks"},
    {"left out", "note", "notes"},
    {"left out", "title", "titles"},
    {"left out", "other reading", "other readings"},
    {"left out", "number of another numbering", "numbers of another numbering"},
    {"left out", "figure or index entry", "figures or index entries"},
    {"left out", "text outside the verses", "texts outside the verses"},
    {"ended", "note without an end, with its paragraph", "notes without an end, with their paragraphs"},
}};

} // namespace

std::string SourceFindings::text() const
{
    std::string lines;
    for (std::size_t i = 0; i < wordings.size(); ++i)
        if (const Occasions& found = m_found[i]; found.count != 0)
            lines += ut::format("%-14s", wordings[i].label) + std::to_string(found.count) + ' ' +
                     (found.count == 1 ? wordings[i].singular : wordings[i].plural) + ", first " +
                     found.firstPlace + '\n';
    return lines;
}

} // namespace Kedrin::ModTool
