#pragma once

#include "errors.h"
#include "read_source.h"
#include "source_text.h"
#include "temp_folder.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace sqlite_test {

inline const std::string versesTable =
    "CREATE TABLE verses(book_number NUMERIC, chapter NUMERIC, verse NUMERIC, text TEXT);";
inline const std::string booksTable =
    "CREATE TABLE books(book_number NUMERIC, short_name TEXT, long_name TEXT);";
inline const std::string fromVerses = "source        SQLite, verses of the table \"verses\"\n";

/// A database file of statements, and what is read of it.
class SqliteReader : public testing::Test
{
protected:
    /// Makes a database of these statements.
    void make(const std::string& statements) const
    {
        std::filesystem::remove(m_file);
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(m_file.c_str(), &database), SQLITE_OK);
        char* error = nullptr;
        sqlite3_exec(database, statements.c_str(), nullptr, nullptr, &error);
        EXPECT_EQ(error, nullptr) << error;
        sqlite3_free(error);
        sqlite3_close(database);
    }

    Kedrin::ModTool::SourceBible read(const std::string& statements) const
    {
        make(statements);
        return Kedrin::ModTool::readSourceFile(m_file, {});
    }

    std::string linesIn(const std::string& statements) const
    {
        return test_support::linesOf(read(statements));
    }

    /// Without the file's name.
    std::string errorIn(const std::string& statements) const
    {
        make(statements);
        return error();
    }

    std::string error() const
    {
        const std::string text = test_support::messageOf<Kedrin::ModTool::CBuildError>(
            [&] { Kedrin::ModTool::readSourceFile(m_file, {}); });
        return text.starts_with(m_file) ? text.substr(m_file.size()) : text;
    }

    /// A table of one verse, Gen 1:1.
    Kedrin::ModTool::SourceBible verse(const std::string& text) const
    {
        return read(versesTable + "INSERT INTO verses VALUES(1, 1, 1, '" + text + "')");
    }

    const test_support::TempFolder m_folder;
    const std::string m_file = m_folder.file("bible.db");
};

} // namespace sqlite_test
