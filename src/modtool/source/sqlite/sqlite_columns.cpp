#include "sqlite_columns.h"

#include "ascii.h"

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

} // namespace Kedrin::ModTool
