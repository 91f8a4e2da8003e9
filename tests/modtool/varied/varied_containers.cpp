// SQLite databases and zip archives.

#include "varied_formats.h"

#include <sqlite3.h>
#include <zlib.h>

#include <memory>
#include <stdexcept>

namespace varied_test {

namespace {

void execute(sqlite3* database, const std::string& statements)
{
    char* error = nullptr;
    if (sqlite3_exec(database, statements.c_str(), nullptr, nullptr, &error) != SQLITE_OK)
        throw std::runtime_error(std::string(error) + ": " + statements);
}

std::string quoted(const std::string& content)
{
    std::string sql = "'";
    for (const char c : content)
        sql += c == '\'' ? "''" : c == '\0' ? "'||char(0)||'" : std::string(1, c);
    return sql + '\'';
}

/// The names of the columns of verses, and what the numbers of books are.
struct Columns
{
    const char* table;
    const char* book;
    const char* chapter;
    const char* verse;
    const char* text;
    bool inTens;
};

std::string rowsOf(const Text& text, const Columns& columns, CRandom& random)
{
    std::vector<std::string> rows;
    const bool isText = random.oneIn(4);
    for (const Verse& verse : text) {
        const unsigned int book = columns.inTens ? verse.book->tens : verse.book->number;
        const std::string name = isText ? quoted(anyNameOf(*verse.book, random)) : std::to_string(book);
        rows.push_back("INSERT INTO " + std::string(columns.table) + " VALUES(" + name + ", " +
                       std::to_string(verse.chapter) + ", " + std::to_string(verse.verse) + ", " +
                       quoted(withBlanks(verse.text, " \n\t", random)) + ");");
    }
    std::string all;
    for (const std::string& row : rows)
        all += row;
    return all;
}

std::string bytesOf(sqlite3* database)
{
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
        sqlite3_serialize(database, "main", &size, 0), &sqlite3_free);
    return {reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size)};
}

std::string littleEndian(std::uint32_t value, unsigned int byteCount)
{
    std::string bytes;
    for (unsigned int i = 0; i < byteCount; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

/// Without the header of zlib.
std::string deflated(const std::string& content)
{
    z_stream stream{};
    ::deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string out(::deflateBound(&stream, static_cast<uLong>(content.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    ::deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    ::deflateEnd(&stream);
    return out;
}

} // namespace

std::string zipOf(const std::vector<File>& files, CRandom& random)
{
    std::string all, directory;
    for (const File& file : files) {
        const bool isDeflated = random.oneIn(2);
        const std::string packed = isDeflated ? deflated(file.bytes) : file.bytes;
        const auto checksum = static_cast<std::uint32_t>(::crc32(
            0, reinterpret_cast<const Bytef*>(file.bytes.data()), static_cast<uInt>(file.bytes.size())));
        const std::string common =
            littleEndian(20, 2) + littleEndian(0, 2) + littleEndian(isDeflated ? 8 : 0, 2) +
            littleEndian(0, 2) + littleEndian(0x21, 2) + littleEndian(checksum, 4) +
            littleEndian(static_cast<std::uint32_t>(packed.size()), 4) +
            littleEndian(static_cast<std::uint32_t>(file.bytes.size()), 4) +
            littleEndian(static_cast<std::uint32_t>(file.name.size()), 2) + littleEndian(0, 2);
        directory += "PK\1\2" + littleEndian(20, 2) + common + littleEndian(0, 2) + littleEndian(0, 4) +
                     littleEndian(0, 4) + littleEndian(static_cast<std::uint32_t>(all.size()), 4) + file.name;
        all += "PK\3\4" + common + file.name + packed;
    }
    const auto count = static_cast<std::uint32_t>(files.size());
    return all + directory + "PK\5\6" + littleEndian(0, 4) + littleEndian(count, 2) + littleEndian(count, 2) +
           littleEndian(static_cast<std::uint32_t>(directory.size()), 4) +
           littleEndian(static_cast<std::uint32_t>(all.size()), 4) + littleEndian(0, 2);
}

std::vector<File> writeSqlite(const Text& text, CRandom& random)
{
    static constexpr Columns all[] = {{"verses", "book_number", "chapter", "verse", "text", true},
                                      {"Bible", "Book", "Chapter", "Verse", "Scripture", false},
                                      {"t_made", "b", "c", "v", "t", false},
                                      {"bible_verses", "book_id", "chapter", "verse", "content", false}};
    static constexpr const char* types[] = {"NUMERIC", "INTEGER", "TEXT"};
    static constexpr const char* pages[] = {"512", "1024", "4096"};
    static constexpr const char* encodings[] = {"UTF-8", "UTF-16le", "UTF-16be"};
    // without names, 10 alone may be Genesis or 2 Samuel, and 40 alone Numbers or Matthew
    const bool mayBeInTens = text.back().book->tens > 66;
    const bool mayBeInOrder = text.front().book->number != 40 || text.back().book->number != 40;
    const unsigned int first = mayBeInTens ? 0 : 1;
    const Columns& columns = all[first + random.number(mayBeInOrder ? 4 - first : 1)];
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, &sqlite3_close);
    const std::string type = random.oneOf(types);
    execute(opened, std::string("PRAGMA page_size = ") + random.oneOf(pages) + "; PRAGMA encoding = '" +
                        random.oneOf(encodings) + "';");
    if (random.oneIn(3))
        execute(opened,
                "CREATE TABLE info(name TEXT, value TEXT); INSERT INTO info VALUES('description', 'Тест');");
    execute(opened, std::string("CREATE TABLE ") + columns.table + '(' + columns.book + ' ' + type + ", " +
                        columns.chapter + ' ' + type + ", " + columns.verse + ' ' + type + ", " +
                        columns.text + " TEXT);" + rowsOf(text, columns, random));
    if (random.oneIn(3))
        execute(opened, std::string("CREATE INDEX made ON ") + columns.table + '(' + columns.chapter + ");");
    return {{"made.db", bytesOf(opened)}};
}

std::vector<File> writeZip(const Text& text, CRandom& random)
{
    const auto others = formats().first(formats().size() - 1);
    std::vector<File> files = others[random.number(others.size())].write(text, random);
    const std::string folder = random.oneIn(3) ? "folder/" : "";
    for (File& file : files)
        file.name = folder + file.name;
    if (random.oneIn(3))
        files.push_back({"__MACOSX/._made", "x"});
    return {{"made.zip", zipOf(files, random)}};
}

std::string writeSource(const std::vector<File>& files, const test_support::TempFolder& folder)
{
    const bool isFolder = files.size() > 1 || files.front().name.ends_with(".dat");
    std::filesystem::remove_all(folder.file("source"));
    std::string path;
    for (const File& file : files)
        path = folder.write((isFolder ? "source/" : "") + file.name, file.bytes);
    return isFolder ? folder.file("source") : path;
}

std::span<const Format> formats()
{
    static constexpr Format all[] = {{"verse-lines", "verse_lines", &writeVerseLines},
                                     {"plain-table", "plain_lines", &writePlainTable},
                                     {"plain-references", "plain_lines", &writePlainReferences},
                                     {"plain-headings", "plain_lines", &writePlainHeadings},
                                     {"plain-hashed", "plain_lines", &writePlainHashed},
                                     {"osis", "osis", &writeOsis},
                                     {"usfm", "usfm", &writeUsfm},
                                     {"zefania", "zefania", &writeZefania},
                                     {"beblia", "beblia", &writeBeblia},
                                     {"opensong", "opensong", &writeOpenSong},
                                     {"usx", "usx", &writeUsx},
                                     {"usfx", "usfx", &writeUsfx},
                                     {"ces", "ces", &writeCes},
                                     {"json", "json", &writeJson},
                                     {"yaml", "yaml", &writeYaml},
                                     {"sqlite", "sqlite", &writeSqlite},
                                     {"zip", "archive", &writeZip}};
    return all;
}

} // namespace varied_test
