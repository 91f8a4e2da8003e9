// SQLite databases and zip archives that are made to do harm.

#include "hostile_source.h"

#include <sqlite3.h>
#include <zip.h>

#include <memory>
#include <stdexcept>

namespace process_test {

namespace {

void require(bool done)
{
    if (!done)
        throw std::runtime_error("cannot make the source");
}

/// The file of a database that these statements make.
std::string database(const std::string& sql)
{
    sqlite3* opened = nullptr;
    require(sqlite3_open(":memory:", &opened) == SQLITE_OK);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, &sqlite3_close);
    require(sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    sqlite3_int64 byteCount = 0;
    const std::unique_ptr<unsigned char, void (*)(void*)> bytes(
        sqlite3_serialize(opened, "main", &byteCount, 0), &sqlite3_free);
    require(bytes != nullptr);
    return {reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(byteCount)};
}

constexpr const char* tableOfVerses = "CREATE TABLE verses(book, chapter, verse, text);";

/// A table of verses with these rows.
std::string verses(const std::string& rows) { return tableOfVerses + ("INSERT INTO verses " + rows + ';'); }

/// Rows of this many numbers n, from 1.
std::string counted(const std::string& row, unsigned int count)
{
    return "WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n < " +
           std::to_string(count) + ") SELECT " + row + " FROM numbers";
}

/// Verses of the database, all of whose pages lead to the first one of the rows.
std::string rowsThatShareOnePage()
{
    std::string bytes = database(verses(counted("1, 1, n, 'a'", 5000)));
    constexpr std::size_t page = 4096, root = page, interior = 5, headerBytes = 12, cellCountAt = 3;
    require(bytes.at(root) == interior);
    const unsigned int cells = static_cast<unsigned char>(bytes[root + cellCountAt]) * 256u +
                               static_cast<unsigned char>(bytes[root + cellCountAt + 1]);
    for (unsigned int i = 0; i < cells; ++i) {
        const std::size_t at = root + headerBytes + 2 * std::size_t{i};
        const std::size_t cell =
            root + static_cast<unsigned char>(bytes[at]) * 256u + static_cast<unsigned char>(bytes[at + 1]);
        bytes.replace(cell, 4, std::string("\0\0\0\2", 4)); // the root again
    }
    return bytes;
}

using Files = std::vector<std::pair<std::string, std::string>>; // name and content

/// The archive with these files.
std::string archive(const Files& files)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_t* made = zip_open_from_source(source, ZIP_TRUNCATE, &error);
    require(made != nullptr);
    zip_source_keep(source);
    for (const auto& [name, content] : files)
        require(zip_file_add(made, name.c_str(), zip_source_buffer(made, content.data(), content.size(), 0),
                             ZIP_FL_ENC_UTF_8) >= 0);
    require(zip_close(made) == 0 && zip_source_open(source) == 0);
    zip_stat_t about;
    require(zip_source_stat(source, &about) == 0);
    std::string bytes(about.size, '\0');
    require(zip_source_read(source, bytes.data(), bytes.size()) == static_cast<zip_int64_t>(about.size));
    zip_source_close(source);
    zip_source_free(source);
    return bytes;
}

std::string manyFiles(unsigned int count)
{
    Files files;
    for (unsigned int i = 0; i < count; ++i)
        files.emplace_back(std::to_string(i) + ".txt", "");
    return archive(files);
}

const std::string line = "Gen\t1\t1\ta\n";

/// An archive whose directory says that its only file has this many bytes.
std::string archiveThatStates(const std::string& size)
{
    std::string bytes = archive({{"a.txt", line}});
    constexpr std::size_t sizeAt = 24; // of the unpacked file, in its entry of the directory
    return bytes.replace(bytes.find("PK\1\2") + sizeAt, size.size(), size);
}

const std::string noTableOfVerses =
    "@: contains no table of verses, with columns such as book, chapter, verse and text";

const std::vector<Hostile> hostileSqlite{
    {"HeaderAlone", [] { return std::string("SQLite format 3\0", 16); },
     "@: not a valid SQLite database: file is not a database"},
    {"HugeFile", [] { return std::string("SQLite format 3\0", 16) + std::string((64u << 20) + 1, '\0'); },
     "@: is larger than 64 MiB"},
    {"Zeros", [] { return std::string("SQLite format 3\0", 16) + std::string(1u << 20, '\0'); },
     "@: not a valid SQLite database: file is not a database"},
    {"HugeText", [] { return database(verses("VALUES(1, 1, 1, printf('%.*c', 16777216, 'a'))")); },
     "@: not a valid SQLite database: string or blob too big"},
    {"LongText", [] { return database(verses("VALUES(1, 1, 1, printf('%.*c', 1048576, 'a'))")); },
     "Gen 1:1: the verse has 1048576 bytes; the limit is 65535"},
    {"ManyRows", [] { return database(verses(counted("1, 1, 1, ''", 1000001))); },
     "@:1000001: more than 1000000 rows"},
    {"ManyVerses", [] { return database(verses(counted("1, 1 + n / 100, 1 + n % 100, 'a'", 100000))); },
     "Gen 656:35: the module would have more than 65534 verses"},
    {"ManyTables", [] { return database(numbered("CREATE TABLE t", "(book, chapter, verse, text);", 2000)); },
     "@: several tables contain verses: " + numbered("\"t", "\", ", 100).substr(0, 200)},
    {"ManyColumns", [] { return database("CREATE TABLE verses(a" + numbered(",a", "", 1999) + ")"); },
     "@: not a valid SQLite database: malformed database schema (verses) - too many columns on verses"},
    {"EndlessView",
     [] {
         return database(
             "CREATE VIEW verses AS WITH RECURSIVE n(book, chapter, verse, text) AS (SELECT 1, 1, "
             "1, 'a' UNION ALL SELECT 1, 1, verse + 1, 'a' FROM n) SELECT * FROM n");
     },
     noTableOfVerses},
    {"EndlessGeneratedColumn",
     [] {
         return database("CREATE TABLE verses(book, chapter, verse); INSERT INTO verses VALUES(1, 1, 1);"
                         "ALTER TABLE verses ADD COLUMN text AS (printf('%.*c', 999999999, 'a'))");
     },
     noTableOfVerses},
    {"RowsThatShareOnePage", rowsThatShareOnePage,
     "@: not a valid SQLite database: database disk image is malformed"},
    {"DeepTags",
     [] {
         return database(verses("VALUES(1, 1, 1, 'a' || replace(printf('%.*c', 300000, 'a'), 'a', '<b>'))"));
     },
     ""},
    {"NumberOfFourBillion", [] { return database(verses("VALUES(1, 1, 4294967297, 'a')")); },
     "@:1: \"4294967297\" is not a verse number"},
    {"NumberBeyondAll", [] { return database(verses("VALUES(1e300, 1, 1, 'a')")); },
     "@:1: \"1.0e+300\" is not a known book: write its number, its English name or its OSIS id, such as Gen"},
    {"PathAsBook", [] { return database(verses("VALUES('../../x', 1, 1, 'a')")); },
     "@:1: \"../../x\" is not a known book: write its number, its English name or its OSIS id, such as Gen"},
};

const std::vector<Hostile> hostileArchives{
    {"Empty", [] { return std::string("PK\5\6") + std::string(18, '\0'); }, "@: contains no files"},
    {"HeaderAlone", [] { return std::string("PK\3\4"); }, "@: not a valid zip archive: Not a zip archive"},
    {"CutOff",
     [] {
         return archive({{"a.txt", line}}).substr(0, 60);
     },
     "@: not a valid zip archive: Not a zip archive"},
    {"HugeFile", [] { return "PK\3\4" + std::string(64u << 20, '\0'); }, "@: is larger than 64 MiB"},
    {"Bomb",
     [] {
         return archive({{"a.txt", std::string(100u << 20, 'a')}});
     },
     "@: contains more than 64 MiB"},
    {"BombOfManyFiles",
     [] {
         Files files;
         for (unsigned int i = 0; i < 40; ++i)
             files.emplace_back(std::to_string(i) + ".txt", std::string(2u << 20, 'a'));
         return archive(files);
     },
     "@: contains more than 64 MiB"},
    {"StatesFourGigabytes", [] { return archiveThatStates("\xFF\xFF\xFF\xFE"); },
     "@: not a valid zip archive: Zip archive inconsistent"},
    {"StatesNothing", [] { return archiveThatStates(std::string(4, '\0')); },
     "@: not a valid zip archive: Zip archive inconsistent"},
    {"ManyFiles", [] { return manyFiles(10001); }, "@: contains more than 10000 files"},
    {"EmptyFiles", [] { return manyFiles(10000); },
     "@: contains no USFM or USX file (*.usfm, *.sfm, *.ptx, *.scp, *.usx)"},
    {"ArchiveInArchive",
     [] {
         return archive({{"a.zip", archive({{"a.txt", line}})}});
     },
     "@/a.zip:1: not valid UTF-8"},
    {"LeadsOutside",
     [] {
         return archive({{"../../../x.txt", line}});
     },
     ""},
    {"RootedName",
     [] {
         return archive({{"/etc/x.txt", line}});
     },
     ""},
};

INSTANTIATE_TEST_SUITE_P(Sqlite, HostileSource, testing::ValuesIn(hostileSqlite), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Archive, HostileSource, testing::ValuesIn(hostileArchives), nameOfHostile);

} // namespace

} // namespace process_test
