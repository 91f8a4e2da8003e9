#pragma once

#include "sqlite_database.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The table's column with one of these names, ignoring case, or "".
std::string columnOf(const CSqliteDatabase::Table& table, std::initializer_list<std::string_view> names);

/// The columns of a table of verses. If it has none of book, chapter and verse, `id` has all three, such as 1001001.
struct VerseColumns
{
    std::string table, id, book, chapter, verse, text;

    bool areComplete() const
    {
        return !text.empty() && (!id.empty() || (!book.empty() && !chapter.empty() && !verse.empty()));
    }
};

/// Those that a table has, by the names that databases give them.
VerseColumns verseColumnsOf(const CSqliteDatabase::Table& table);

} // namespace Kedrin::ModTool
