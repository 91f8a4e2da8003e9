#include "json_fields.h"

#include "ascii.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t longestKey = 24;

const std::unordered_map<std::string_view, Field>& spellings()
{
    static const std::unordered_map<std::string_view, Field> known{
        {"books", Field::books},
        {"book", Field::book},
        {"b", Field::book},
        {"booknr", Field::bookNumber},
        {"booknumber", Field::bookNumber},
        {"booknum", Field::bookNumber},
        {"bookid", Field::bookNumber},
        {"bnumber", Field::bookNumber},
        {"bookname", Field::bookName},
        {"booktitle", Field::bookName},
        {"bookcode", Field::bookCode},
        {"bookabbrev", Field::bookCode},
        {"bookabbreviation", Field::bookCode},
        {"bookshortname", Field::bookCode},
        {"chapters", Field::chapters},
        {"chapter", Field::chapter},
        {"c", Field::chapter},
        {"chapternr", Field::chapter},
        {"chapternumber", Field::chapter},
        {"chapternum", Field::chapter},
        {"chapterid", Field::chapter},
        {"verses", Field::verses},
        {"verse", Field::verse},
        {"v", Field::verse},
        {"versenr", Field::verse},
        {"versenumber", Field::verse},
        {"versenum", Field::verse},
        {"verseid", Field::verse},
        {"resultset", Field::rows},
        {"row", Field::rows},
        {"rows", Field::rows},
        {"data", Field::rows},
        {"field", Field::row},
        {"fields", Field::row},
        {"text", Field::text},
        {"t", Field::text},
        {"versetext", Field::text},
        {"content", Field::text},
        {"scripture", Field::text},
        {"reference", Field::reference},
        {"ref", Field::reference},
        {"nr", Field::number},
        {"number", Field::number},
        {"num", Field::number},
        {"id", Field::id},
        {"name", Field::name},
        {"longname", Field::name},
        {"fullname", Field::name},
        {"title", Field::title},
        {"abbrev", Field::shortName},
        {"abbreviation", Field::shortName},
        {"abbr", Field::shortName},
        {"short", Field::shortName},
        {"shortname", Field::shortName},
        {"code", Field::shortName},
        {"osis", Field::shortName},
        {"usfm", Field::shortName},
        {"translation", Field::translation},
        {"version", Field::translation},
        {"copyright", Field::rights},
        {"license", Field::rights},
        {"rights", Field::rights},
        {"description", Field::rights},
        {"publisher", Field::rights},
        {"heading", Field::heading},
        {"headings", Field::heading},
        {"header", Field::heading},
        {"subtitle", Field::heading},
        {"note", Field::note},
        {"notes", Field::note},
        {"footnote", Field::note},
        {"footnotes", Field::note},
        {"comment", Field::note},
        {"comments", Field::note},
        {"crossreferences", Field::note},
        {"xref", Field::note},
        {"xrefs", Field::note},
    };
    return known;
}

} // namespace

Field fieldOf(std::string_view key)
{
    if (key.size() > longestKey)
        return Field::none;
    std::string plain = lower(key);
    std::erase_if(plain, [](char c) { return c == '_' || c == '-' || c == ' '; });
    const auto found = spellings().find(plain);
    return found == spellings().end() ? Field::none : found->second;
}

} // namespace Kedrin::ModTool
