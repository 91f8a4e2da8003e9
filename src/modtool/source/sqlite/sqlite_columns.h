#pragma once

#include "sqlite_database.h"
#include "verse_number.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

    /// The id, or book, chapter and verse.
    std::vector<std::string> ofPosition() const
    {
        return id.empty() ? std::vector{book, chapter, verse} : std::vector{id};
    }
};

/// Those that a table has, by the names that databases give them.
VerseColumns verseColumnsOf(const CSqliteDatabase::Table& table);

/// Those of the only table of verses, or of that among several which is named "verses" or "Bible".
/// @throws CBuildError
///     "%s: contains no table of verses, with columns such as book, chapter, verse and text"
///     "%s: several tables contain verses: %s"
VerseColumns verseColumnsOf(const std::vector<CSqliteDatabase::Table>& tables, const std::string& fileName);

/// Whether a row of a table of verses is one, by its numbers: other tables may have columns with the same names.
bool hasVerses(const CSqliteDatabase& database, const VerseColumns& columns);

/// A number, which may be text or 1.0.
std::optional<VerseNumber> numberOf(std::string_view text);

/// The parts of an id, as text.
struct VerseId
{
    std::string book, chapter, verse;
};

/// 1001002 is book 1, chapter 1, verse 2.
/// @returns nothing for any other text
std::optional<VerseId> splitVerseId(std::string_view id);

} // namespace Kedrin::ModTool
