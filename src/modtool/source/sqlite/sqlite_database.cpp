#include "sqlite_database.h"

#include "ascii.h"
#include "errors.h"
#include "input_file.h"
#include "messages.h"
#include "module_format.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view header("SQLite format 3\0", 16);
constexpr int maxValueBytes = 4 << 20;
constexpr int stepsPerCall = 1000;
constexpr std::uint64_t maxCalls = 200000; // a Bible of 64 MiB needs a few thousand

/// The file as an immutable URI, so that no journal beside it is read.
std::string uriOf(const std::string& fileName)
{
    constexpr std::string_view hex = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : fileName) {
        const auto byte = static_cast<unsigned char>(c);
        if (isAsciiLetter(c) || isAsciiDigit(c) || c == '/' || c == '.' || c == '_' || c == '-')
            uri += c;
        else
            uri.append({'%', hex[byte >> 4], hex[byte & 15u]});
    }
    return uri + "?immutable=1";
}

int countWork(void* calls) { return ++*static_cast<std::uint64_t*>(calls) > maxCalls ? 1 : 0; }

/// Allows queries to read, and nothing else.
int authorize(void*, int action, const char* name, const char*, const char*, const char*)
{
    const bool isOfColumns = action == SQLITE_PRAGMA && std::string_view(name) == "table_xinfo";
    return isOfColumns || action == SQLITE_SELECT || action == SQLITE_READ ? SQLITE_OK : SQLITE_DENY;
}

void restrict(sqlite3* database, std::uint64_t& calls)
{
    for (const auto& [option, value] : {std::pair(SQLITE_DBCONFIG_DEFENSIVE, 1),
                                        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                        {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                                        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                        {SQLITE_DBCONFIG_ENABLE_VIEW, 0}})
        sqlite3_db_config(database, option, value, nullptr);
    for (const auto& [limit, value] : {std::pair(SQLITE_LIMIT_LENGTH, maxValueBytes),
                                       {SQLITE_LIMIT_SQL_LENGTH, 100000},
                                       {SQLITE_LIMIT_COLUMN, 100},
                                       {SQLITE_LIMIT_EXPR_DEPTH, 20},
                                       {SQLITE_LIMIT_COMPOUND_SELECT, 2},
                                       {SQLITE_LIMIT_ATTACHED, 0},
                                       {SQLITE_LIMIT_TRIGGER_DEPTH, 0},
                                       {SQLITE_LIMIT_WORKER_THREADS, 0}})
        sqlite3_limit(database, limit, value);
    sqlite3_progress_handler(database, stepsPerCall, countWork, &calls);
    sqlite3_set_authorizer(database, authorize, nullptr);
}

std::string quoted(const std::string& name)
{
    std::string all = "\"";
    for (const char c : name)
        all += c == '"' ? "\"\"" : std::string(1, c);
    return all + '"';
}

} // namespace

CSqliteDatabase::CRows::CRows(const CSqliteDatabase& database, sqlite3_stmt* statement)
    : m_database(database),
      m_statement(statement, &sqlite3_finalize)
{}

bool CSqliteDatabase::CRows::next()
{
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_INTERRUPT)
        throw CBuildError(message("%s: takes too long to read", m_database.m_fileName));
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        m_database.fail();
    return result == SQLITE_ROW;
}

std::string_view CSqliteDatabase::CRows::text(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    return bytes ? std::string_view(bytes,
                                    static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column)))
                 : std::string_view();
}

CSqliteDatabase::CSqliteDatabase(const std::string& fileName)
    : m_fileName(fileName),
      m_database(nullptr, &sqlite3_close)
{
    const ut::CInputFile file(fileName.c_str());
    if (!file.isOpen())
        throw CBuildError(message("%s: cannot be opened", fileName));
    if (file.size() > maxSourceBytes)
        throw CBuildError(message("%s: is larger than 64 MiB", fileName));
    open(uriOf(fileName), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    restrict(m_database.get(), m_work);
}

CSqliteDatabase::CSqliteDatabase(const std::string& fileName, std::string bytes)
    : m_fileName(fileName),
      m_bytes(std::move(bytes)),
      m_database(nullptr, &sqlite3_close)
{
    constexpr std::size_t writeVersion = 18, readVersion = 19; // in the header
    if (m_bytes.size() > readVersion)
        m_bytes[writeVersion] = m_bytes[readVersion] = 1; // no write-ahead log, which memory cannot have
    open(":memory:", SQLITE_OPEN_READWRITE);
    const auto byteCount = static_cast<sqlite3_int64>(m_bytes.size());
    if (sqlite3_deserialize(m_database.get(), "main", reinterpret_cast<unsigned char*>(m_bytes.data()),
                            byteCount, byteCount, SQLITE_DESERIALIZE_READONLY) != SQLITE_OK)
        fail();
    restrict(m_database.get(), m_work);
}

void CSqliteDatabase::open(const std::string& uri, int flags)
{
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(uri.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    m_database.reset(database);
    if (result != SQLITE_OK)
        throw CBuildError(message("%s: cannot be opened", m_fileName));
}

void CSqliteDatabase::fail() const
{
    throw CBuildError(
        message("%s: not a valid SQLite database: %s", m_fileName, sqlite3_errmsg(m_database.get())));
}

CSqliteDatabase::CRows CSqliteDatabase::query(const std::string& sql) const
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        fail();
    return {*this, statement};
}

std::vector<CSqliteDatabase::Table> CSqliteDatabase::tables() const
{
    std::vector<Table> tables;
    for (CRows rows = query("SELECT name FROM sqlite_schema WHERE type = 'table' AND rootpage > 0");
         rows.next();)
        if (const std::string name(rows.text(0)); !name.starts_with("sqlite_"))
            tables.push_back({name, {}});
    constexpr int name = 1, hidden = 6; // columns of the answer
    for (Table& table : tables)
        for (CRows columns = query("PRAGMA table_xinfo(" + quoted(table.name) + ")"); columns.next();)
            if (columns.text(hidden) == "0") // a generated one would run the functions of its expression
                table.columns.emplace_back(columns.text(name));
    return tables;
}

CSqliteDatabase::CRows CSqliteDatabase::rows(const std::string& table,
                                             const std::vector<std::string>& columns) const
{
    std::string list;
    for (const std::string& column : columns)
        list += (list.empty() ? "" : ", ") + quoted(column);
    return query("SELECT " + list + " FROM " + quoted(table));
}

bool isSqliteContent(std::string_view bytes) { return bytes.starts_with(header); }

bool isSqliteFile(const std::string& fileName)
{
    const ut::CInputFile file(fileName.c_str());
    std::array<char, header.size()> bytes{};
    return file.isOpen() && file.readAt(0, bytes.data(), bytes.size()) == bytes.size() &&
           isSqliteContent({bytes.data(), bytes.size()});
}

} // namespace Kedrin::ModTool
