// Structures of JSON, and what is read of them.

#include "json_text.h"

#include <gtest/gtest.h>

#include <map>

using namespace Kedrin::ModTool;
using namespace json_test;
using test_support::linesOf;

namespace {

/// 66 books with unknown names, "X1" and so on, as lists.
std::string sixtySixBooks(const std::string& first)
{
    std::string json = "[" + first;
    for (unsigned int i = 2; i <= 66; ++i)
        json += R"(,{"abbrev":"x)" + std::to_string(i) + R"(","chapters":[["a"]]})";
    return json + "]";
}

/// A verse with this text.
SourceBible verse(const std::string& text)
{
    return read(R"([{"book": 1, "chapter": 1, "verse": 1, "text": ")" + text + "\"}]");
}

} // namespace

TEST(JsonReader, ListOfBooksWithListsOfVerses)
{
    const SourceBible bible = read(R"([{"abbrev":"gn","name":"Genesis","chapters":[["one","two"],["three"]]},
                 {"name":"Изход","abbrev":"ex","chapters":[["four"]]}])");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one\nGen 1:2 two\nGen 2:1 three\nExod 1:1 four\n");
    EXPECT_EQ(bible.findings.text(), books);
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Genesis");
    EXPECT_EQ(bible.bookTitles[0].abbreviatedTitle, "gn");
}

TEST(JsonReader, SixtySixUnnamedBooksAreIdentifiedByPosition)
{
    const SourceBible bible = read(sixtySixBooks(R"({"abbrev":"gn","chapters":[["a"]]})"));
    ASSERT_EQ(bible.books.size(), 66u);
    EXPECT_EQ(bible.books[31], "Jonah");
    EXPECT_EQ(bible.books[65], "Rev");
    EXPECT_EQ(bible.findings.text(),
              books + source + "66 books; those without a known name identified by position\n");
    EXPECT_TRUE(errorIn(sixtySixBooks(R"({"name":"Revelation","chapters":[["a"]]})"))
                    .starts_with("f.json:1: \"x2\" is not a known book: " + whatToWrite + '\n'));
}

TEST(JsonReader, BookWithObjectsOfChaptersAndVerses)
{
    const std::string book = R"({"name":"Genesis","numChapters":50,"chapters":{"2":{"1":"c"},
        "1":{"2":"b","1":"a","3-4":"d"}}})";
    EXPECT_EQ(linesIn(book), "Gen 1:1 a\nGen 1:2 b\nGen 1:3 d\nGen 2:1 c\n");
    EXPECT_EQ(linesIn("var book = " + book + ";\n"), "Gen 1:1 a\nGen 1:2 b\nGen 1:3 d\nGen 2:1 c\n");
}

TEST(JsonReader, JavaScriptAroundTheValue)
{
    const std::string value = R"([{"book":1,"chapter":1,"verse":1,"text":"a"}])";
    for (const std::string before : {"var b = ", "let b=", "const b =\n",
                                     "book = ", "window.book = ", "module.exports = ", "export default ",
                                     "// of 2001\n/* two\nlines */ var b = "})
        EXPECT_EQ(linesIn(before + value + " ;\n"), "Gen 1:1 a\n") << before;
    EXPECT_EQ(errorIn("var = 1;"), "f.json:1: not JSON: it does not start with { or [");
    EXPECT_EQ(errorIn("var b = " + value + ";\nvar c = 1;"),
              "f.json:1: not valid JSON: \"ter\":1,\"verse\":1,\"text\":\"a\"}];\"");
}

TEST(JsonReader, BooksWithDescriptions)
{
    const SourceBible bible = read(
        R"({"translation":"Нов превод","abbreviation":"НП","lang":"bg","license":"Free",
            "books":[{"nr":66,"name":"Откровение","chapters":[{"chapter":1,"name":"Откровение 1",
              "verses":[{"verse":1,"chapter":1,"name":"Откровение 1:1","text":"а"},{"verse":2,"text":"б"}]}]}]})");
    EXPECT_EQ(linesOf(bible), "Rev 1:1 а\nRev 1:2 б\n");
    EXPECT_EQ(bible.findings.text(), books);
    EXPECT_EQ(bible.info.fullTitle, "Нов превод");
    EXPECT_EQ(bible.info.shortTitle, "НП");
    EXPECT_EQ(bible.info.abbreviatedTitle, "НП");
    EXPECT_EQ(bible.info.copyright, std::vector<std::string>{"Free"});
    EXPECT_EQ(bible.bookTitles[0].fullTitle, "Откровение");
}

TEST(JsonReader, OneChapterPerFile)
{
    const SourceBible bible = read(
        R"({"translation":"T","book_nr":43,"chapter":3,"verses":[{"chapter":3,"verse":16,"text":"a"}]})");
    EXPECT_EQ(linesOf(bible), "John 3:16 a\n");
    EXPECT_EQ(bible.findings.text(), source + "JSON, chapters with verses\n");
    EXPECT_EQ(linesIn(R"({"book":"John","chapter":"3","verses":{"16":"a"}})"), "John 3:16 a\n");
    EXPECT_EQ(errorIn(R"({"chapter":3,"verses":["a"]})"), "f.json:1: a chapter without a book");
}

TEST(JsonReader, FlatListOfVerses)
{
    const SourceBible bible = read(R"([{"book":1,"chapter":1,"verse":1,"text":"a"},
                 {"book":"Exodus","chapter":"2","verse":"3","text":"b"},
                 {"Book_ID":66,"book_name":"Revelation","Chapter":1,"Verse":2,"Text":"c"},
                 {"b":1,"c":1,"v":2,"t":"d"}])");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:2 d\nExod 2:3 b\nRev 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), records);
    EXPECT_EQ(linesIn(R"({"verses":[{"book_id":"JHN","chapter":3,"verse":16,"text":"a"}],"name":"T"})"),
              "John 3:16 a\n");
    EXPECT_EQ(linesIn(R"([{"id":1001002,"text":"a"},{"id":"66022021","text":"b"},
                          {"reference":"1 Cor 2:3","text":"c"}])"),
              "Gen 1:2 a\nRev 22:21 b\n1Cor 2:3 c\n");
}

TEST(JsonReader, RowsWithoutKeys)
{
    const SourceBible bible =
        read(R"({"resultset":{"row":[{"field":[1001001,1,1,1,"a"]},{"field":[66022021,66,22,21,"b"]}]}})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nRev 22:21 b\n");
    EXPECT_EQ(bible.findings.text(), records);
    EXPECT_EQ(linesIn(R"([["Gen",1,1,"a"],[1001002,"b"],["Gen 1:3","c"]])"),
              "Gen 1:1 a\nGen 1:2 b\nGen 1:3 c\n");
}

TEST(JsonReader, SecondListOfBooksIsRead)
{
    const SourceBible bible = read(R"({"books":[{"name":"Genesis","chapters":[["a"]]}],
                                       "apocrypha":[{"name":"Tobit","chapters":[["b"]]}]})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nTob 1:1 b\n");
    EXPECT_EQ(bible.findings.text(), books);
    EXPECT_EQ(errorIn("{\"books\":[{\"name\":\"Genesis\",\"chapters\":[[\"a\"]]}],\n\"apocrypha\":["
                      "{\"name\":\"Tobit\",\"chapters\":[[\"b\"]]},\n{\"name\":\"Qwertyuiop\",\"chapters\":[["
                      "\"b\"]]}]}"),
              "f.json:3: \"Qwertyuiop\" is not a known book: " + whatToWrite);
}

TEST(JsonReader, OtherListsBesideTheBooksAreCounted)
{
    const std::string verses = R"([{"book":1,"chapter":1,"verse":1,"text":"a"}])";
    const std::string others = R"([{"book":1,"chapter":1,"verse":2,"text":"b"}])";
    const std::string counted = "left out      1 text outside the verses, first at line 1\n";
    for (const auto& [first, second] : std::map<std::string, std::string>{
             {"verses", "verses2"}, {"data", "extra"}, {"rows", "verse"}, {"books", "verses"}}) {
        const SourceBible bible =
            read("{\"" + first + "\":" + verses + ",\"" + second + "\":" + others + "}");
        EXPECT_EQ(linesOf(bible), "Gen 1:1 a\n") << first;
        EXPECT_EQ(bible.findings.text(), records + counted) << first;
    }
    const auto beside = [&](const std::string& member) {
        return read("{\"verses\":" + verses + ',' + member + "}").findings.text();
    };
    EXPECT_EQ(beside(R"("more":{"Tobit":{"1":{"1":"b"}}})"), records + counted);
    EXPECT_EQ(beside(R"("more":{"1":"b"})"), records + counted);
    EXPECT_EQ(beside(R"("topics":[{"verses":["b"]}])"), records + counted);
    EXPECT_EQ(beside(R"("notes":["b"])"), records + "left out      1 note, first at line 1\n");
    EXPECT_EQ(beside(R"("metadata":{"lang":{"code":"bg"}},"title":["b"])"), records);
}

TEST(JsonReader, OtherListsWithinABookOrVerseAreCounted)
{
    const std::string counted = "left out      1 text outside the verses, first at ";
    EXPECT_EQ(read(R"([{"name":"Genesis","chapters":[["a"]],"verses":["b"],"title":["c"]}])").findings.text(),
              books + counted + "line 1\n");
    EXPECT_EQ(
        read(
            R"([{"name":"Genesis","chapters":[[{"verse":1,"text":"a","verses":{"2":"b"},"book_name":["c"]}]]}])")
            .findings.text(),
        books + counted + "Gen 1:1\n");
}

TEST(JsonReader, BooksByTheirNames)
{
    const SourceBible bible =
        read(R"({"metadata":{"name":"T"},"Genesis":{"1":{"1":"a"}},"Изход":{"2":["b","c"]},"40":[["d"]]})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nExod 2:1 b\nExod 2:2 c\nMatt 1:1 d\n");
    EXPECT_EQ(bible.findings.text(), books);
    EXPECT_EQ(read(R"({"Genesis":{"1":{"1":"a"}},"Qwertyuiop":{"1":"b"}})").findings.text(),
              books + "left out      1 text outside the verses, first at line 1\n");
}

TEST(JsonReader, ListsThatStartWithNullAreNumberedFromZero)
{
    EXPECT_EQ(linesIn(R"([{"name":"Gen","chapters":[null,[null,"a","b"],["c",null,"d"]]}])"),
              "Gen 1:1 a\nGen 1:2 b\nGen 2:1 c\nGen 2:3 d\n");
}

TEST(JsonReader, TextInSeveralParts)
{
    EXPECT_EQ(linesIn(R"([{"book":1,"chapter":1,"verse":1,"text":["one","two",null]}])"),
              "Gen 1:1 one two\n");
    EXPECT_EQ(errorIn("[{\"book\":1,\"chapter\":1,\"verse\":1,\n\"text\":5}]"),
              "f.json:2: a verse's text must be a string or a list of strings");
}

TEST(JsonReader, TagsAreRemovedAndNumbersHeadingsAndNotesCounted)
{
    const SourceBible bible = verse(
        "<h3>Head</h3><p><span class=\\\"chapternum\\\">1&nbsp;</span><sup class='x versenum'>1 </sup>In "
        "<i>the</i><br/>begin&#110;ing<sup>2</sup>, 3 &lt; 4<f>[1]</f>, "
        "God<S>430</S> &amp; a < b <z>");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 In the beginning, 3 < 4, God & a < b <z>\n");
    EXPECT_EQ(bible.findings.text(),
              records + "left out      1 note, first at Gen 1:1\n"
                        "left out      1 title, first at Gen 1:1\n"
                        "left out      3 chapter or verse numbers within the text, first at Gen 1:1\n");
}

TEST(JsonReader, LexicalNumbersDoNotDivideWordsAndNotesDoNotJoinThem)
{
    EXPECT_EQ(linesOf(verse("for<S>1063</S>give <S>2</S>one<f>n</f>two")), "Gen 1:1 forgive one two\n");
}

TEST(JsonReader, UnpairedTagLeavesNothingOut)
{
    EXPECT_EQ(linesOf(verse("one <f>two <h1>three</f> four</h2> five<sup>")), "Gen 1:1 one four five\n");
    EXPECT_EQ(linesOf(verse("one <f>two <h1>three")), "Gen 1:1 one two three\n");
}

TEST(JsonReader, OtherTextsOfAVerseAreLeftOutAndCounted)
{
    const SourceBible bible =
        read(R"([{"book":1,"chapter":1,"verse":1,"heading":"H","text":"a","footnotes":["f","g"],
                  "audio":"file","name":"Gen 1:1"}])");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\n");
    EXPECT_EQ(bible.findings.text(), records + "left out      2 notes, first at Gen 1:1\n"
                                               "left out      1 title, first at Gen 1:1\n"
                                               "left out      1 text outside the verses, first at Gen 1:1\n");
}

TEST(JsonReader, DuplicateKeysAreNoticed)
{
    const SourceBible bible = read(R"({"name":"Gen","chapters":{"1":{"1":"a","1":"b","2":"c","2":"c"}}})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a b\nGen 1:2 c\n");
    EXPECT_EQ(bible.findings.text(), books +
                                         "joined        1 verse given more than once, first at Gen 1:1\n"
                                         "left out      1 verse repeated word for word, first at Gen 1:2\n");
    EXPECT_EQ(errorIn("[{\"book\":1,\"chapter\":1,\"verse\":1,\"text\":\"a\",\n\"text\":\"b\"}]"),
              "f.json:2: duplicate key \"text\" in one object");
    EXPECT_EQ(
        errorIn(
            "[{\"name\":\"Gen\",\"chapters\":[[\"a\"]]},\n{\"name\":\"Genesis\",\"chapters\":[[\"b\"]]}]"),
        "f.json:2: Gen was already given at f.json:1");
}
