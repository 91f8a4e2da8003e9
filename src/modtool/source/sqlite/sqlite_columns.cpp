#include "sqlite_columns.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"

#include <algorithm>

namespace Kedrin::ModTool {

std::string columnOf(const CSqliteDatabase::Table& table, std::initializer_list<std::string_view> names)
{
    for (const std::string_view name : names)
        for (const std::string& column : table.columns)
            if (lower(column) == name)
                return column;
    return "";
}

VerseColumns verseColumnsOf(const CSqliteDatabase::Table& table)
{
    VerseColumns found;
    found.table = table.name;
    found.book = columnOf(table, {"book_number", "book", "book_id", "b"});
    found.chapter = columnOf(table, {"chapter", "chapter_number", "c"});
    found.verse = columnOf(table, {"verse", "verse_number", "v"});
    found.text = columnOf(table, {"text", "scripture", "verse_text", "t", "content"});
    if (found.book.empty() && found.chapter.empty() && found.verse.empty())
        found.id = columnOf(table, {"id", "verse_id", "vid"});
    return found;
}

VerseColumns verseColumnsOf(const std::vector<CSqliteDatabase::Table>& tables, const std::string& fileName)
{
    std::vector<VerseColumns> found;
    std::vector<std::string> names;
    for (const CSqliteDatabase::Table& table : tables)
        if (const VerseColumns columns = verseColumnsOf(table); columns.areComplete()) {
            found.push_back(columns);
            names.push_back(inQuotes(table.name));
        }
    if (found.empty())
        throw CBuildError(message(
            "%s: contains no table of verses, with columns such as book, chapter, verse and text", fileName));
    if (found.size() == 1)
        return found.front();
    for (const VerseColumns& columns : found)
        if (const std::string name = lower(columns.table); name == "verses" || name == "bible")
            return columns;
    throw CBuildError(
        message("%s: several tables contain verses: %s", fileName, joined(names, ", ").substr(0, 200)));
}

bool hasVerses(const CSqliteDatabase& database, const VerseColumns& columns)
{
    if (!columns.areComplete())
        return false;
    auto rows = database.rows(columns.table, columns.ofPosition());
    while (rows.next())
        if (columns.id.empty() ? numberOf(rows.text(1)) && numberOf(rows.text(2))
                               : splitVerseId(rows.text(0)).has_value())
            return true;
    return false;
}

std::optional<VerseNumber> numberOf(std::string_view text)
{
    if (text.ends_with(".0"))
        text.remove_suffix(2);
    return parseVerseNumber(text);
}

std::optional<VerseId> splitVerseId(std::string_view id)
{
    constexpr std::size_t digits = 3;
    if (id.size() < 1 + 2 * digits || !std::all_of(id.begin(), id.end(), isAsciiDigit))
        return std::nullopt;
    std::string_view book = id.substr(0, id.size() - 2 * digits);
    book.remove_prefix(std::min(book.find_first_not_of('0'), book.size()));
    return VerseId{std::string(book), std::string(id.substr(id.size() - 2 * digits, digits)),
                   std::string(id.substr(id.size() - digits))};
}

} // namespace Kedrin::ModTool
