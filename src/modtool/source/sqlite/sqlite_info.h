#pragma once

#include "source_bible.h"
#include "sqlite_database.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Takes the titles and copyright from a table that describes the source: by names with values, or by the columns of one row.
/// @returns whether the table is one
/// @throws CBuildError  as validSqliteText()
bool readSqliteInfo(const CSqliteDatabase& database, const CSqliteDatabase::Table& table, SourceInfo& info);

/// A text of a row.
/// @param row  of its table, from 1
/// @throws CBuildError  "%s:%u: not valid UTF-8", "%s:%u: a string longer than 1 MiB"
std::string validSqliteText(const std::string& fileName, std::string_view text, std::size_t row);

} // namespace Kedrin::ModTool
