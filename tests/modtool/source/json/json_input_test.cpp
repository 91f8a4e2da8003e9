// Which files and folders are JSON, and what is refused with which words.

#include "format_page.h"
#include "json_text.h"
#include "read_source.h"
#include "source_format.h"
#include "temp_folder.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace json_test;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

TEST(JsonReader, UnknownBooksAreRefused)
{
    EXPECT_EQ(errorIn("[\n{\"name\":\"Genezis\",\"chapters\":[[\"a\"]]}]"),
              "f.json:2: \"Genezis\" is not a known book: " + whatToWrite + " (did you mean Gen?)");
    EXPECT_EQ(errorIn(R"([{"book":67,"chapter":1,"verse":1,"text":"a"}])"),
              "f.json:1: \"67\" is not a known book: " + whatToWrite);
    EXPECT_EQ(errorIn(R"({"Qwertyuiop":{"1":{"1":"a"}}})"),
              "f.json:1: \"Qwertyuiop\" is not a known book: " + whatToWrite);
    EXPECT_EQ(errorIn(R"([{"chapters":[["a"]]}])"), "f.json:1: a book without a name or number");
    EXPECT_EQ(errorIn(R"([{"chapter":1,"verse":1,"text":"a"}])"), "f.json:1: a verse without a book");
    EXPECT_EQ(errorIn(R"([{"book":1,"verse":1,"text":"a"}])"), "f.json:1: a verse without a chapter");
    EXPECT_EQ(errorIn(R"([{"book":1,"chapter":1,"text":"a"}])"), "f.json:1: a verse without a number");
    EXPECT_EQ(errorIn(R"({"name":"Gen","chapters":{"one":{"1":"a"}}})"),
              "f.json:1: \"one\" is not a chapter number");
    EXPECT_EQ(errorIn(R"({"name":"Gen","chapters":{"1":{"one":["a"]}}})"),
              "f.json:1: \"one\" is not a verse number");
}

TEST(JsonReader, OtherJsonIsRefused)
{
    EXPECT_EQ(errorIn("{}"), "f.json: contains no verses");
    EXPECT_EQ(errorIn("[\n{\"a\":1}]"), "f.json:2: " + unknownShape);
    EXPECT_EQ(errorIn("[[1]]"), "f.json:1: " + unknownShape);
    EXPECT_EQ(errorIn("\n"), "f.json:1: not JSON: it does not start with { or [");
    EXPECT_EQ(errorIn("[\n1,\n}"), "f.json:3: not valid JSON: \"}\"");
    EXPECT_EQ(errorIn("[1,\n2"), "f.json:2: not valid JSON: unexpected end");
    EXPECT_EQ(errorIn("{\"a\":\"b\n\"}"), "f.json:1: not valid JSON: \"{\"a\":\"b\"");
    EXPECT_EQ(errorIn("{book: 1}"), "f.json:1: not valid JSON: \"{b\"");
    EXPECT_EQ(errorIn(R"({"a":"\ud800"})"), "f.json:1: not valid JSON: \"{\"a\":\"\\ud800\"\"");
}

TEST(JsonReader, KeysThatAreNoReferenceAreRefusedOrCounted)
{
    const auto with = [](const std::string& member) { return R"({"John 3:16":"a",)" + member + "}"; };
    for (const std::string key : {"John 3:18-4:2", "John 3:22 (KJV)", "Ps 3:title", "John 3"})
        for (const std::string value : {R"("b")", R"({"name":"b"})", R"({"text":"b"})", R"(["b"])", "5"})
            EXPECT_EQ(errorIn(with('"' + key + "\":" + value)),
                      "f.json:1: \"" + key + "\" is not a verse reference, such as Gen.1.1")
                << value;
    EXPECT_EQ(errorIn(R"x({"John 3:22 (KJV)":"b","Genesis":{"1":{"1":"a"}}})x"),
              "f.json:1: \"John 3:22 (KJV)\" is not a verse reference, such as Gen.1.1");
    EXPECT_EQ(errorIn(with(R"("John 3:17":{"1":"b"})")), "f.json:1: " + unknownShape);
    EXPECT_EQ(errorIn(with(R"("John 3:17":5)")),
              "f.json:1: a verse's text must be a string or a list of strings");
    EXPECT_EQ(read(with(R"("one":"b","iso639":"bul","name":"T")")).findings.text(),
              source + "JSON, verses by reference\n" +
                  "left out      2 texts outside the verses, first at line 1\n");
}

TEST(JsonReader, SizesAreBounded)
{
    EXPECT_EQ(errorIn("\n" + std::string(101, '[')), "f.json:2: values are nested more than 100 deep");
    EXPECT_EQ(errorIn("[\"" + std::string((1u << 20) + 1, 'a') + "\"]"),
              "f.json:1: a string longer than 1 MiB");
    std::string many = "[0";
    for (unsigned int i = 0; i < 1000000; ++i)
        many += ",0";
    EXPECT_EQ(errorIn(many + "]"), "f.json:1: more than 1000000 values");
}

TEST(JsonReader, InvalidUtf8IsRefusedWithItsLine)
{
    const TempFolder folder;
    const std::string file = folder.write("f.json", "{\n\"a\":\"\xFF\"}");
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(file, {}); }), file + ":2: not valid UTF-8");
}

TEST(JsonReader, IsFoundByTheContent)
{
    for (const std::string json : {"{\"a\"", " [ {", "[[", "\n{}", "var book = {\"a\":1}"})
        EXPECT_EQ(detectFormat(json, "f"), SourceFormat::json) << json;
    for (const std::string text :
         {"[1:1] In the beginning", "{not json}", "variable = 5", "Gen\t1\t1\t{\"a\"}"})
        EXPECT_NE(detectFormat(text, "f"), SourceFormat::json) << text;
}

TEST(JsonReader, FolderWithOneFilePerBook)
{
    const auto book = [](const std::string& name) {
        return "\xEF\xBB\xBFvar book = {\"name\":\"" + name + "\",\"chapters\":{\"1\":{\"1\":\"a\"}}};";
    };
    const TempFolder folder;
    folder.write("10.js", book("?"));
    folder.write("2.js", book("Exodus"));
    folder.write("index.js", "no book");
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), {})), "Exod 1:1 a\n2Sam 1:1 a\n");
    const TempFolder named;
    named.write("exodus.json", book("Exodus"));
    named.write("Genesis.json", book("Genesis"));
    ReadOptions json;
    json.format = SourceFormat::json;
    EXPECT_EQ(linesOf(readSourceFile(named.path().string(), json)), "Gen 1:1 a\nExod 1:1 a\n");
    named.write("01.json", book("Genesis"));
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(named.path().string(), json); }),
              named.file("Genesis.json") + ":1: Gen was already given at " + named.file("01.json") + ":1");
    const TempFolder empty;
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(empty.path().string(), json); }),
              empty.path().string() + ": contains no JSON file (*.json, *.js)");
}

TEST(JsonReader, ExampleOfTheFormatPage)
{
    const SourceBible bible = read(test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/json.md"));
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог\n");
    EXPECT_EQ(bible.findings.text(),
              books + "left out      1 note, first at Gen 1:1\n"
                      "left out      1 title, first at Gen 1:1\n"
                      "left out      1 chapter or verse number within the text, first at Gen 1:1\n");
    EXPECT_EQ(bible.info.fullTitle, "Тест");
}
