#include "sqlite_reader.h"

#include "errors.h"
#include "format_page.h"
#include "source_format.h"
#include "source_text.h"
#include "temp_folder.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

namespace {

const std::string versesTable =
    "CREATE TABLE verses(book_number NUMERIC, chapter NUMERIC, verse NUMERIC, text TEXT);";
const std::string booksTable = "CREATE TABLE books(book_number NUMERIC, short_name TEXT, long_name TEXT);";
const std::string fromVerses = "source        SQLite, verses of the table \"verses\"\n";

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

    SourceBible read(const std::string& statements) const
    {
        make(statements);
        return readSourceFile(m_file, {});
    }

    std::string linesIn(const std::string& statements) const { return linesOf(read(statements)); }

    /// Without the file's name.
    std::string errorIn(const std::string& statements) const
    {
        make(statements);
        return error();
    }

    std::string error() const
    {
        const std::string text = messageOf<CBuildError>([&] { readSourceFile(m_file, {}); });
        return text.starts_with(m_file) ? text.substr(m_file.size()) : text;
    }

    /// A table of one verse, Gen 1:1.
    SourceBible verse(const std::string& text) const
    {
        return read(versesTable + "INSERT INTO verses VALUES(1, 1, 1, '" + text + "')");
    }

    const TempFolder m_folder;
    const std::string m_file = m_folder.file("bible.db");
};

/// The bytes of hexadecimal digits.
std::string bytesOf(std::string_view hex)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    return bytes;
}

TEST_F(SqliteReader, SmallestDatabase)
{
    // Two pages of 512 bytes: the header and the schema, then the table with one row of three ones and "a".
    std::string bytes(1024, '\0');
    for (const auto& [offset, hex] : {std::pair<std::size_t, std::string_view>{
                                          0, "53514c69746520666f726d6174203300" // SQLite format 3, zero
                                             "02000101004020200000000100000002"},
                                      {43, "0100000004"}, // one schema, of format 4
                                      {59, "01"},         // UTF-8
                                      {95, "02002e6301"}, // version of the library that wrote it
                                      {100, "0d0000000101b80001b8"},
                                      {440, "460106171717016d" // table Bible, its root is page 2
                                            "7461626c654269626c654269626c6502"
                                            "435245415445205441424c45204269626c6528426f6f6b2c436861707465722c"
                                            "56657273652c53637269707475726529"},
                                      {512, "0d0000000101f80001f8"},
                                      {1016, "0601050909090f61"}})
        bytes.replace(offset, hex.size() / 2, bytesOf(hex));
    std::ofstream(m_file, std::ios::binary) << bytes;
    EXPECT_EQ(linesOf(readSourceFile(m_file, {})), "Gen 1:1 a\n");
}

TEST_F(SqliteReader, BooksInTensWithTheirNames)
{
    const SourceBible bible =
        read(versesTable + booksTable +
             "INSERT INTO books VALUES(10, 'Бит', 'Битие'), (170, 'Тов', 'Товит'), (470, 'Мт', 'Матей');"
             "INSERT INTO verses VALUES(470, 1, 2, 'd'), (10, 1, 1, 'a'), (10, 2, 1, 'b'), (170, 1, 1, 'c'), "
             "(730, 22, 21, 'e')");
    EXPECT_EQ(linesOf(bible), "Matt 1:2 d\nGen 1:1 a\nGen 2:1 b\nTob 1:1 c\nRev 22:21 e\n");
    EXPECT_EQ(bible.findings.text(), fromVerses);
    EXPECT_EQ(bible.bookTitles[1].fullTitle, "Битие");
    EXPECT_EQ(bible.bookTitles[1].abbreviatedTitle, "Бит");
}

TEST_F(SqliteReader, TableBibleWithDetails)
{
    const SourceBible bible =
        read("CREATE TABLE Details(Title TEXT, Abbreviation TEXT, Comments TEXT, Version TEXT);"
             "INSERT INTO Details VALUES('Name', 'N', '<p>Free</p>', '1');"
             "CREATE TABLE Bible(Book INT, Chapter INT, Verse INT, Scripture TEXT);"
             "INSERT INTO Bible VALUES(1, 1, 1, 'a'), (66, 1, 2, 'b')");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nRev 1:2 b\n");
    EXPECT_EQ(bible.info.fullTitle, "Name");
    EXPECT_EQ(bible.info.shortTitle, "N");
    EXPECT_EQ(bible.info.copyright, std::vector<std::string>{"Free"});
    EXPECT_EQ(bible.findings.text(), "source        SQLite, verses of the table \"Bible\"\n");
}

TEST_F(SqliteReader, FlatTablesAndIds)
{
    EXPECT_EQ(linesIn("CREATE TABLE t_web(id INTEGER PRIMARY KEY, b INT, c INT, v INT, t TEXT);"
                      "INSERT INTO t_web VALUES(1001001, 1, 1, 1, 'a'), (66022021, 66, 22, 21, 'b')"),
              "Gen 1:1 a\nRev 22:21 b\n");
    EXPECT_EQ(linesIn("CREATE TABLE verses(id INTEGER PRIMARY KEY, text TEXT);"
                      "INSERT INTO verses VALUES(1001002, 'a'), (66022021, 'b')"),
              "Gen 1:2 a\nRev 22:21 b\n");
    EXPECT_EQ(
        linesIn("CREATE TABLE verses(id INTEGER PRIMARY KEY, book TEXT, chapter TEXT, verse TEXT, text TEXT);"
                "INSERT INTO verses VALUES(1, 'Genesis', '1', '2-3', 'a'), (2, 'JHN', 3.0, 16, 'b')"),
        "Gen 1:2 a\nJohn 3:16 b\n");
}

TEST_F(SqliteReader, InfoAndOtherTables)
{
    const SourceBible bible =
        read(versesTable + "CREATE TABLE info(name TEXT, value TEXT);"
                           "INSERT INTO info VALUES('description', 'Name'), ('language', 'bg'), "
                           "('copyright', 'Free');"
                           "CREATE TABLE stories(n INT, story TEXT); CREATE TABLE x(y);"
                           "INSERT INTO verses VALUES(10, 1, 1, 'a'), (470, 1, 1, 'b')");
    EXPECT_EQ(bible.info.fullTitle, "Name");
    EXPECT_EQ(bible.info.copyright, std::vector<std::string>{"Free"});
    EXPECT_EQ(bible.findings.text(), fromVerses + "left out      tables without verses: stories, x\n");
}

TEST_F(SqliteReader, TagsAreRemovedAndCounted)
{
    const SourceBible bible =
        verse("<pb/>In the beginning<S>7225</S> <J>God</J><f>[1]</f>, <h>H</h>made<m>x</m> &amp; <n>n</n>"
              "<t>rested</t><br/>.");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 In the beginning God, made & rested .\n");
    EXPECT_EQ(bible.findings.text(), fromVerses + "left out      2 notes, first at Gen 1:1\n"
                                                  "left out      1 title, first at Gen 1:1\n");
    EXPECT_EQ(bible.findings.letters(ReaderRule::attribute), 5u);
    EXPECT_GT(bible.findings.letters(ReaderRule::tag), 0u);
}

TEST_F(SqliteReader, VersesGivenTwiceAndVerseZero)
{
    const SourceBible bible = read(versesTable + "INSERT INTO verses VALUES(1, 1, 0, 't'), (1, 1, 1, 'a'), "
                                                 "(1, 1, 1, 'b'), (1, 1, 2, NULL)");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 t a b\nGen 1:2\n");
    EXPECT_EQ(bible.findings.text(),
              fromVerses + "joined        1 verse given more than once, first at Gen 1:1\n"
                           "joined        1 verse 0, put before the next verse, first at Gen 1:0\n");
}

TEST_F(SqliteReader, RefusesUnknownTablesBooksAndNumbers)
{
    const std::string what = ": write its number, its English name or its OSIS id, such as Gen";
    EXPECT_EQ(errorIn("CREATE TABLE a(b)"),
              ": contains no table of verses, with columns such as book, chapter, verse and text");
    EXPECT_EQ(errorIn(versesTable), ": contains no verses");
    EXPECT_EQ(errorIn(versesTable + "INSERT INTO verses VALUES(1, 1, 1, 'a'), (67, 1, 1, 'b')"),
              ":1: \"1\" is not a known book" + what);
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

TEST_F(SqliteReader, ExampleOfTheFormatPage)
{
    const SourceBible bible = read(test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/sqlite.md"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог създаде\nRev 22:21 Амин\n");
    EXPECT_EQ(bible.findings.text(), fromVerses + "left out      1 note, first at Gen 1:1\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
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
