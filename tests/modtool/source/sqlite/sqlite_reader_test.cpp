// Structures of databases, and what is read of them.

#include "format_page.h"
#include "read_source.h"
#include "sqlite_file.h"

#include <array>
#include <fstream>
#include <utility>
#include <vector>

using namespace Kedrin::ModTool;
using namespace sqlite_test;
using test_support::linesOf;

namespace {

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

/// Verse 1 of these chapters.
std::string versesOf(const std::vector<std::pair<unsigned int, unsigned int>>& chapters)
{
    std::string statements = versesTable;
    for (const auto& [book, chapter] : chapters)
        statements += "INSERT INTO verses VALUES(" + std::to_string(book) + ", " + std::to_string(chapter) +
                      ", 1, 'a');";
    return statements;
}

TEST_F(SqliteReader, BooksUpToJoshuaAreInTensIfTheirNamesSaySo)
{
    const SourceBible bible =
        read(versesOf({{10, 1}, {20, 1}, {60, 1}}) + booksTable +
             "INSERT INTO books VALUES(10, 'Бит', 'Битие'), (20, 'Изх', 'Изход'), (60, 'Qwe', 'Qwerty')");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nExod 1:1 a\nJosh 1:1 a\n");
    EXPECT_EQ(bible.findings.text(), fromVerses);
    EXPECT_EQ(linesIn(versesOf({{10, 1}}) + booksTable + "INSERT INTO books VALUES(10, 'Gen', 'Qwerty')"),
              "Gen 1:1 a\n");
    EXPECT_EQ(linesIn(versesOf({{10, 1}, {20, 1}}) + booksTable +
                      "INSERT INTO books VALUES(10, '2Цар', '2 Царства'), (20, 'Притч', 'Притчи')"),
              "2Sam 1:1 a\nProv 1:1 a\n");
    EXPECT_EQ(errorIn(versesOf({{10, 1}, {20, 1}, {30, 1}}) + booksTable +
                      "INSERT INTO books VALUES(10, '', 'Битие'), (20, '', 'Притчи'), (30, '', 'Левит')"),
              ":2: the book is Exod by its number, but Prov by its name: correct one of them");
}

TEST_F(SqliteReader, BooksUpToJoshuaAreNumberedAsInTheTableOfBooks)
{
    EXPECT_EQ(linesIn(versesOf({{40, 1}}) + booksTable +
                      "INSERT INTO books VALUES(40, '', 'Qwerty'), (470, '', 'Asdf')"),
              "Num 1:1 a\n");
    EXPECT_EQ(linesIn(versesOf({{40, 1}}) + booksTable +
                      "INSERT INTO books VALUES(40, '', 'Qwerty'), (41, '', 'Asdf')"),
              "Matt 1:1 a\n");
}

TEST_F(SqliteReader, BooksUpToJoshuaWithoutNamesAreNumberedByTheirChapters)
{
    const std::string inTens = "interpreted   numbers of books in tens, 10 for Gen\n";
    const std::string inOrder = "interpreted   numbers of books from 1 to 66, 10 for 2Sam\n";
    for (const auto& [statements, lines, said] : std::vector<std::array<std::string, 3>>{
             {versesOf({{40, 29}}), "Num 29:1 a\n", inTens},
             {versesOf({{40, 28}}), "Matt 28:1 a\n", inOrder},
             {versesOf({{10, 24}, {50, 4}}), "2Sam 24:1 a\nPhil 4:1 a\n", inOrder},
             {versesOf({{10, 24}, {50, 5}}), "Gen 24:1 a\nDeut 5:1 a\n", inTens},
             {versesOf({{10, 1}, {20, 1}, {30, 1}}), "Gen 1:1 a\nExod 1:1 a\nLev 1:1 a\n", inTens},
             {"CREATE TABLE verses(id INTEGER PRIMARY KEY, text TEXT);"
              "INSERT INTO verses VALUES(10050026, 'a')",
              "Gen 50:26 a\n", inTens}}) {
        const SourceBible bible = read(statements);
        EXPECT_EQ(linesOf(bible), lines);
        EXPECT_EQ(bible.findings.text(), fromVerses + said);
    }
}

TEST_F(SqliteReader, RefusesNumbersOfBooksWithTwoMeanings)
{
    for (const auto& chapters : std::vector<std::vector<std::pair<unsigned int, unsigned int>>>{
             {{10, 1}}, {{40, 1}, {40, 27}}, {{20, 1}, {30, 1}}, {{10, 1}, {30, 1}}})
        EXPECT_EQ(errorIn(versesOf(chapters)),
                  ": the numbers of books may be in tens (10 for Gen) or from 1 to 66 (10 for 2Sam): add a "
                  "table of books with their names");
}

TEST_F(SqliteReader, MostNumbersOfBooksDecide)
{
    EXPECT_EQ(linesIn(versesOf({{1, 1}, {10, 1}})), "Gen 1:1 a\n2Sam 1:1 a\n");
    EXPECT_EQ(linesIn(versesOf({{10, 1}, {60, 1}, {70, 1}})), "Gen 1:1 a\nJosh 1:1 a\nJudg 1:1 a\n");
    EXPECT_EQ(linesIn(versesOf({{1, 1}, {2, 1}, {10, 1}, {67, 1}}) + booksTable +
                      "INSERT INTO books VALUES(67, 'Тов', 'Товит')"),
              "Gen 1:1 a\nExod 1:1 a\n2Sam 1:1 a\nTob 1:1 a\n");
    EXPECT_EQ(linesIn("CREATE TABLE verses(id INTEGER PRIMARY KEY, text TEXT);"
                      "INSERT INTO verses VALUES(10001001, 'a'), (730022021, 'b')"),
              "Gen 1:1 a\nRev 22:21 b\n");
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

TEST_F(SqliteReader, OtherTablesWithVersesAreLeftOutAndCounted)
{
    const SourceBible bible =
        read(versesTable +
             "INSERT INTO verses VALUES(10, 1, 1, 'ab'), (730, 1, 1, 'c');"
             "CREATE TABLE verses_apocrypha(book_number, book_name, chapter, verse, text);"
             "INSERT INTO verses_apocrypha VALUES(170, 'Товит', 1, 1, 'Книга на <i>Товит</i>'), "
             "(170, 'Товит', 1, 2, 'д');"
             "CREATE TABLE flat(id INTEGER PRIMARY KEY, text TEXT); INSERT INTO flat VALUES(1001001, 'efg');"
             "CREATE TABLE stories(id INTEGER PRIMARY KEY, text TEXT); INSERT INTO stories VALUES(1, 'h');"
             "CREATE TABLE none(book, chapter, verse, text);");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 ab\nRev 1:1 c\n");
    EXPECT_EQ(bible.findings.text(), fromVerses +
                                         "left out      other tables with verses: verses_apocrypha, flat\n"
                                         "left out      tables without verses: stories, none\n"
                                         "left out      3 texts of other tables, first at line 1\n");
    EXPECT_EQ(bible.findings.letters(ReaderRule::otherTable), 18u);
    EXPECT_EQ(bible.letters, 21u);
}

TEST_F(SqliteReader, OtherTablesAreCountedInRtfToo)
{
    const SourceBible bible = read(versesTable + "INSERT INTO verses VALUES(1, 1, 1, '\\par \\cf6 ab');"
                                                 "CREATE TABLE b(book, chapter, verse, text);"
                                                 "INSERT INTO b VALUES(1, 1, 1, '\\par \\u1041?')");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 ab\n");
    EXPECT_EQ(bible.findings.letters(ReaderRule::otherTable), 8u);
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

TEST_F(SqliteReader, ExampleOfTheFormatPage)
{
    const SourceBible bible = read(test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/sqlite.md"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог създаде\nRev 22:21 Амин\n");
    EXPECT_EQ(bible.findings.text(), fromVerses + "left out      1 note, first at Gen 1:1\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
}

} // namespace
