// Databases that are damaged, hostile or of an unknown kind.

#include "read_source.h"
#include "sqlite_file.h"
#include "sqlite_reader.h"

#include <fstream>

using namespace Kedrin::ModTool;
using namespace sqlite_test;
using test_support::linesOf;
using test_support::messageOf;

namespace {

TEST_F(SqliteReader, RefusesUnknownTablesBooksAndNumbers)
{
    const std::string what = ": write its number, its English name or its OSIS id, such as Gen";
    EXPECT_EQ(errorIn("CREATE TABLE a(b)"),
              ": contains no table of verses, with columns such as book, chapter, verse and text");
    EXPECT_EQ(errorIn(versesTable), ": contains no verses");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(10, 1, 1, 'a'), (67, 1, 1, 'b')"),
              ":2: \"67\" is not a known book" + what);
    EXPECT_EQ(errorIn(versesTable + booksTable +
                      "INSERT INTO books VALUES(67, 'Qwe', 'Qwerty');"
                      "INSERT INTO verses VALUES(67, 1, 1, 'a')"),
              ":1: \"Qwerty\" is not a known book" + what);
    EXPECT_EQ(errorIn(versesTable + booksTable +
                      "INSERT INTO books VALUES(2, 'Gen', 'Genesis');"
                      "INSERT INTO verses VALUES(2, 1, 1, 'a')"),
              ":1: the book is Exod by its number, but Gen by its name: correct one of them");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(1, 1, 1, 'a'), (1, 'x', 1, 'b')"),
              ":2: \"x\" is not a chapter number");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(1, 1, 70000, 'a')"),
              ":1: \"70000\" is not a verse number");
    EXPECT_EQ(errorIn("CREATE TABLE verses(id INT, text TEXT); INSERT INTO verses VALUES(1001, 'a')"),
              ":1: \"1001\" is not a verse number");
    EXPECT_EQ(errorIn("CREATE TABLE a(b, c, v, t); CREATE TABLE d(b, c, v, t)"),
              ": several tables contain verses: \"a\", \"d\"");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(1, 1, 1, CAST(x'61ff' AS TEXT))"),
              ":1: not valid UTF-8");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(1, 1, 1, hex(zeroblob(600000)))"),
              ":1: a string longer than 1 MiB");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(1, 1, 1, zeroblob(5000000))"),
              ": not a valid SQLite database: string or blob too big");
}

TEST_F(SqliteReader, ViewsVirtualTablesAndGeneratedColumnsAreNotRun)
{
    const std::string noTable =
        ": contains no table of verses, with columns such as book, chapter, verse and text";
    EXPECT_EQ(
        errorIn(
            "CREATE VIEW verses(book, chapter, verse, text) AS WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL "
            "SELECT x + 1 FROM c) SELECT 1, 1, x, 'a' FROM c"),
        noTable);
    EXPECT_EQ(errorIn("CREATE VIRTUAL TABLE verses USING fts5(book, chapter, verse, text)"), noTable);
    EXPECT_EQ(errorIn("CREATE TABLE verses(book, chapter, verse, text GENERATED ALWAYS AS (printf('%.*c', "
                      "1000000, 'x')));"
                      "INSERT INTO verses VALUES(1, 1, 1)"),
              noTable);
}

TEST_F(SqliteReader, RowsThatShareAPageAreBounded)
{
    make(versesTable + "INSERT INTO verses VALUES(1, 1, 1, hex(zeroblob(520000)));"
                       "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 150)"
                       "INSERT INTO verses SELECT 1, 1, i, hex(zeroblob(1900)) FROM n");
    std::ifstream file(m_file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    constexpr std::size_t root = 4096, cells = root + 12; // of the table's tree
    ASSERT_EQ(bytes[root], '\x05');
    const auto number = [&](std::size_t at) {
        return std::size_t{static_cast<unsigned char>(bytes[at])} * 256 +
               static_cast<unsigned char>(bytes[at + 1]);
    };
    const std::string firstLeaf = bytes.substr(root + number(cells), 4);
    for (std::size_t i = 0; i < number(root + 3); ++i)
        bytes.replace(root + number(cells + 2 * i), 4, firstLeaf);
    std::ofstream(m_file, std::ios::binary) << bytes;
    EXPECT_EQ(error(), ": contains more than 64 MiB");
}

TEST_F(SqliteReader, FilesBesideItAreIgnored)
{
    make(versesTable + "INSERT INTO verses VALUES(1, 1, 1, 'a')");
    std::filesystem::permissions(m_file, std::filesystem::perms::owner_read);
    std::ofstream(m_file + "-journal") << "journal";
    std::ofstream(m_file + "-wal") << "wal";
    EXPECT_EQ(linesOf(readSourceFile(m_file, {})), "Gen 1:1 a\n");
    EXPECT_EQ(std::filesystem::file_size(m_file + "-journal"), 7u);
    EXPECT_FALSE(std::filesystem::exists(m_file + "-shm"));
}

TEST_F(SqliteReader, FileNameMayContainAnything)
{
    make(versesTable + "INSERT INTO verses VALUES(1, 1, 1, 'a')");
    const std::string odd = m_folder.file("a?mode=rw&b=%2F#\"Б.db");
    std::filesystem::rename(m_file, odd);
    EXPECT_EQ(linesOf(readSourceFile(odd, {})), "Gen 1:1 a\n");
}

TEST_F(SqliteReader, DamagedAndTruncatedFilesAreTolerated)
{
    make("PRAGMA page_size = 512;" + versesTable + "INSERT INTO verses VALUES(1, 1, 1, 'a'), (1, 1, 2, 'b')");
    std::ifstream file(m_file, std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(file), {}};
    ASSERT_EQ(whole.size(), 1024u);
    const auto readBytes = [&](const std::string& bytes) {
        std::ofstream(m_file, std::ios::binary) << bytes;
        try {
            readSqlite(m_file);
        } catch (const CBuildError&) {
        }
    };
    for (std::size_t length = 0; length < whole.size(); length += 7)
        readBytes(whole.substr(0, length));
    for (std::size_t i = 0; i < whole.size(); ++i)
        for (const char byte : {'\x7F', '\xFF'}) {
            std::string spoilt = whole;
            spoilt[i] = byte;
            readBytes(spoilt);
        }
}

TEST_F(SqliteReader, IsFoundByItsHeader)
{
    make(versesTable + "INSERT INTO verses VALUES(1, 1, 1, 'a')");
    ReadOptions options;
    options.format = SourceFormat::sqlite;
    EXPECT_EQ(linesOf(readSourceFile(m_file, options)), "Gen 1:1 a\n");
    options.format = SourceFormat::json;
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(m_file, options); }).substr(m_file.size()),
              ":1: not valid UTF-8");
    std::ofstream(m_file) << "no database";
    options.format = SourceFormat::sqlite;
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(m_file, options); }),
              m_file + ": not a valid SQLite database: file is not a database");
    EXPECT_EQ(messageOf<CBuildError>([&] { readSqlite(m_folder.file("none")); }),
              m_folder.file("none") + ": cannot be opened");
}

} // namespace
