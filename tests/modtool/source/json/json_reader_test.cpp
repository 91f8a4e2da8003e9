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

TEST(JsonReader, VersesOfABookStateTheirChapters)
{
    const std::string verses =
        R"("verses":[{"chapter":1,"verse":1,"text":"a"},{"chapter":2,"verse":1,"text":"b"}]})";
    const SourceBible bible = read(R"([{"book":"Genesis",)" + verses + "]");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 2:1 b\n");
    EXPECT_EQ(bible.findings.text(), source + "JSON, chapters with verses\n");
    EXPECT_EQ(
        linesIn(R"({"books":[{"name":"Genesis",)" + verses + R"(,{"nr":43,)" + verses + "]}", "Exodus.json"),
        "Gen 1:1 a\nGen 2:1 b\nJohn 1:1 a\nJohn 2:1 b\n");
    EXPECT_EQ(
        linesIn(
            R"([{"book":"John","number":3,"verses":[{"chapter":3,"verse":1,"text":"a"},{"verse":2,"text":"b"}]}])"),
        "John 3:1 a\nJohn 3:2 b\n");
    EXPECT_EQ(errorIn(R"([{"book":1,"verses":[{"chapter":1,"verse":1,"text":"a"},{"verse":2,"text":"b"}]}])"),
              "f.json:1: a verse without a chapter");
}

TEST(JsonReader, VerseIsPutInItsOwnBookAndChapter)
{
    const std::string verses = R"("chapter":3,"verses":[{"verse":16,"text":"a"},
        {"chapter":4,"verse":1,"text":"b"},{"book":"Mark","chapter":5,"verse":2,"text":"c"},{"verse":17,"text":"d"}]})";
    const std::string lines = "John 3:16 a\nJohn 3:17 d\nJohn 4:1 b\nMark 5:2 c\n";
    EXPECT_EQ(linesIn(R"({"book":"John",)" + verses), lines);
    EXPECT_EQ(linesIn(R"({"books":[{"name":"John","chapters":[{)" + verses +
                      R"(,{"chapter":5,"verses":["e"]}]}]})"),
              "John 3:16 a\nJohn 3:17 d\nJohn 4:1 b\nJohn 5:1 e\nMark 5:2 c\n");
    EXPECT_EQ(errorIn(R"({"book":"John","chapter":3,"verses":[{"book":"Mark","verse":1,"text":"a"}]})"),
              "f.json:1: a verse without a chapter");
    EXPECT_EQ(
        errorIn(R"({"book":"John","chapter":3,"verses":[{"book":"Qwe","chapter":3,"verse":1,"text":"a"}]})"),
        "f.json:1: \"Qwe\" is not a known book: " + whatToWrite);
}

TEST(JsonReader, ChapterIsPutInItsOwnBook)
{
    EXPECT_EQ(linesIn(R"([{"name":"John","chapters":[{"chapter":3,"verses":["a"]},
                          {"book":"Mark","chapter":4,"verses":["b"]},{"chapter":5,"verses":["c"]}]}])"),
              "John 3:1 a\nJohn 5:1 c\nMark 4:1 b\n");
}

TEST(JsonReader, BookOfAVerseMayBeWrittenAsThatAroundIt)
{
    EXPECT_EQ(linesIn(R"([{"nr":470,"name":"1Cor","chapters":[{"book_nr":470,"chapter":2,"verses":[
                          {"book_nr":470,"book":"I Коринтяни","chapter":2,"verse":3,"text":"a"},{"book":470,"verse":4,"text":"b"}]}]},
                         {"nr":11,"name":"1 Samuel","chapters":[{"chapter":1,"verses":[
                          {"book":"1 Samuel","verse":1,"text":"c"}]}]}])"),
              "1Cor 2:3 a\n1Cor 2:4 b\n1Kgs 1:1 c\n");
}

TEST(JsonReader, VerseOfAChapterMayStateItsReference)
{
    EXPECT_EQ(linesIn(R"({"book":"John","chapter":3,"verses":[{"reference":"Jn 3:16","text":"a"},
                          {"id":"JHN.3.17","text":"b"},{"reference":"Mark 4:1","text":"c"}]})"),
              "John 3:16 a\nJohn 3:17 b\nMark 4:1 c\n");
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

TEST(JsonReader, KeysAreReferences)
{
    const SourceBible bible =
        read(R"({"1:1:1":"a","Gen 1:2":"b","1 Cor 1:2":"c","REV.22.21":"d","01001003":"e","name":"T"})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nGen 1:2 b\nGen 1:3 e\n1Cor 1:2 c\nRev 22:21 d\n");
    EXPECT_EQ(bible.findings.text(), source + "JSON, verses by reference\n");
    EXPECT_EQ(bible.info.fullTitle, "T");
}

TEST(JsonReader, ReferencesInSeveralSpellings)
{
    EXPECT_EQ(linesIn(R"({"Jn 3,19":"a","Jn. 3, 20":"b","John 3 : 23":"c","043004002":"d","John 4:3.":"e",
                          "2. Peter 3,4":"f","2 Pet 3:5,6":"g","3 John 5":"h","Jude 2":"i","JUD.3":"j","Jude 4-5":"k",
                          "Jude 1:6":"l","Jude 1,7":"m","Jude 8,9":"n"})"),
              "John 3:19 a\nJohn 3:20 b\nJohn 3:23 c\nJohn 4:2 d\nJohn 4:3 e\n2Pet 3:4 f\n2Pet 3:5 g\n"
              "3John 1:5 h\nJude 1:2 i\nJude 1:3 j\nJude 1:4 k\nJude 1:6 l\nJude 1:7 m\nJude 1:8 n\n");
}

TEST(JsonReader, VersesByReferenceMayBeObjectsOrLists)
{
    const SourceBible bible = read(R"({"John 3:16":{"text":"a","note":"n"},"John 3:17":["b","c"],
                                       "John 3:18":null})");
    EXPECT_EQ(linesOf(bible), "John 3:16 a\nJohn 3:17 b c\n");
    EXPECT_EQ(bible.findings.text(),
              source + "JSON, verses by reference\n" + "left out      1 note, first at John 3:16\n");
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

TEST(JsonReader, VerseZeroPartsAndInvalidNumbers)
{
    const SourceBible bible = read(
        R"({"name":"Gen","chapters":[{"chapter":1,"verses":[{"verse":0,"text":"t"},{"verse":"1a","text":"a"},
            {"verse":"1b","text":"b"},{"verse":"x","text":"c"}]},{"chapter":"?","verses":["d"]}]})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 t a b c\nGen 2:1 d\n");
    EXPECT_EQ(bible.findings.text(),
              books + "joined        2 parts of verses, first at Gen 1:1\n"
                      "joined        1 verse 0, put before the next verse, first at Gen 1:0\n"
                      "joined        1 verse without a number, with the verse before it, first at Gen 1:1\n"
                      "interpreted   1 chapter without a number as the next one, first at line 2\n");
}

TEST(JsonReader, KeyThatStartsWithADigitButIsNoNumberIsAVerseWithoutANumber)
{
    const SourceBible bible = read(
        R"({"Genesis":{"1":{"1":"one","2":"two","2A":"three","3-1":"four","1, 2":["five"],"3.5":null}}})");
    EXPECT_EQ(linesOf(bible), "Gen 1:1 one\nGen 1:2 two three four five\n");
    EXPECT_EQ(bible.findings.text(),
              books +
                  "joined        3 verses without a number, with the verses before them, first at Gen 1:2\n");
}

TEST(JsonReader, WholeNumbersMayHaveADecimalPoint)
{
    EXPECT_EQ(
        linesIn(
            R"([{"book":1.0,"chapter":1.00,"verse":1.0,"text":"a"},{"book":1,"chapter":"2.0","verse":3.0,"text":"b"},
                          {"id":1002004.0,"text":"c"}])"),
        "Gen 1:1 a\nGen 2:3 b\nGen 2:4 c\n");
    EXPECT_EQ(
        linesIn(R"([{"name":"?","nr":43.0,"chapters":[{"chapter":3.0,"verses":[{"verse":16.0,"text":"a"},
                          {"verse":17.5,"text":"b"}]}]}])"),
        "John 3:16 a b\n");
    EXPECT_EQ(linesIn(R"([[43.0,3.0,16.0,"a"],[43003017.0,"b"]])"), "John 3:16 a\nJohn 3:17 b\n");
    EXPECT_EQ(linesIn(R"({"John":{"3.0":{"16.0":"a","17":"b"}}})"), "John 3:16 a\nJohn 3:17 b\n");
}

TEST(JsonReader, ChapterAfterTheLastNumberStaysInRange)
{
    EXPECT_EQ(linesIn(R"([{"name":"Gen","chapters":[{"chapter":65534,"verses":[]},{"chapter":"x","verses":[]},
                          {"chapter":"x","verses":["a"]}]}])"),
              "Gen 65534:1 a\n");
}

TEST(JsonReader, BookIsIdentifiedByNumberNameCodeOrFile)
{
    const auto book = [](const std::string& fields) { return "[{" + fields + R"(,"chapters":[["a"]]}])"; };
    for (const std::string fields :
         {R"("nr":46)", R"("number":"46")", R"("name":"1 Corinthians")", R"("name":"I Коринтяни")",
          R"("abbrev":"1CO")", R"("id":"1Cor")", R"("name":"1 Corinth")", R"("nr":470,"name":"1Cor")"})
        EXPECT_EQ(linesIn(book(fields)), "1Cor 1:1 a\n") << fields;
    for (const std::string file : {"books/46.js", "1Cor.json", "46-1-corinthians.json", "1_Corinthians.js"})
        EXPECT_EQ(linesIn(R"({"name":"?","chapters":[["a"]]})", file), "1Cor 1:1 a\n") << file;
    EXPECT_EQ(errorIn(book(R"("nr":1,"name":"Exodus")")),
              "f.json:1: the book is Gen by its number, but Exod by its name: correct one of them");
    EXPECT_EQ(linesIn(book(R"("nr":11,"name":"1 Samuel")")), "1Kgs 1:1 a\n"); // books of Kings
}
