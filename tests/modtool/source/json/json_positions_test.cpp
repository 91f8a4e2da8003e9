// The books, chapters and numbers of verses in JSON.

#include "json_text.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace json_test;
using test_support::linesOf;

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
