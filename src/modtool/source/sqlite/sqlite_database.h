#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace Kedrin::ModTool {

/// A database file from an untrusted origin, opened read-only and immutable: journals beside it are ignored, its views,
/// triggers and virtual tables are not run, nothing is loaded or attached, and the time and memory of a query are bounded.
class CSqliteDatabase
{
public:
    struct Table
    {
        std::string name;
        std::vector<std::string> columns;
    };

    /// The rows of a query.
    class CRows
    {
    public:
        /// @throws CBuildError  as the constructor of the database, and "%s: takes too long to read"
        bool next();

        /// Valid until the next row.
        std::string_view text(int column) const;

    private:
        friend class CSqliteDatabase;
        CRows(const CSqliteDatabase& database, sqlite3_stmt* statement);

        const CSqliteDatabase& m_database;
        std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> m_statement;
    };

    /// @throws CBuildError
    ///     "%s: cannot be opened", "%s: is larger than 64 MiB"
    ///     "%s: not a valid SQLite database: %s", with the library's message
    explicit CSqliteDatabase(const std::string& fileName);

    /// A database in memory.
    /// @param fileName  for errors
    /// @throws CBuildError  the same
    CSqliteDatabase(const std::string& fileName, std::string bytes);
    CSqliteDatabase(const CSqliteDatabase&) = delete;
    CSqliteDatabase& operator=(const CSqliteDatabase&) = delete;

    /// Its tables in order of creation, without internal ones, views, virtual tables and generated columns.
    std::vector<Table> tables() const;

    /// All rows of a table, in the order of their row ids.
    CRows rows(const std::string& table, const std::vector<std::string>& columns) const;

    const std::string& fileName() const { return m_fileName; }

private:
    CRows query(const std::string& sql) const;
    [[noreturn]] void fail() const;

    void open(const std::string& uri, int flags);

    const std::string& m_fileName;
    std::string m_bytes; ///< of a database in memory; outlives the connection
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> m_database;
    mutable std::uint64_t m_work = 0; ///< steps of the library's virtual machine so far, in thousands
};

/// Whether a content has the header of a SQLite database.
bool isSqliteContent(std::string_view bytes);

/// The same for a regular file.
bool isSqliteFile(const std::string& fileName);

} // namespace Kedrin::ModTool
