// Which YAML is read, what becomes of its texts, and what is refused with which words.

#include "errors.h"
#include "format_page.h"
#include "read_source.h"
#include "source_format.h"
#include "source_text.h"
#include "temp_folder.h"
#include "unknown_books.h"
#include "yaml_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Kedrin::ModTool;
using test_support::linesOf;
using test_support::messageOf;

namespace {

SourceBible read(const std::string& yaml) { return readYaml("f.yaml", yaml); }
std::string linesIn(const std::string& yaml) { return linesOf(read(yaml)); }

std::string errorIn(const std::string& yaml)
{
    return messageOf<CBuildError>([&] { refuseUnknownBooks(read(yaml)); });
}

const std::string verses = "books:\n"
                           "- name: Битие\n"
                           "  chapters:\n"
                           "  - chapter: 1\n"
                           "    verses:\n"
                           "    - verse: 1\n"
                           "      text: 'В начало'\n"
                           "    - verse: 2\n"
                           "      text: А земята\n";
const std::string fromBooks = "source        YAML, books with chapters of verses\n";

} // namespace

TEST(YamlReader, BooksWithChaptersOfVerses)
{
    const SourceBible bible = read("# from a collection\ntranslation: Нов превод\n" + verses);
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало\nGen 1:2 А земята\n");
    EXPECT_EQ(bible.findings.text(), fromBooks);
    EXPECT_EQ(bible.info.fullTitle, "Нов превод");
}

TEST(YamlReader, OtherStructuresOfJson)
{
    EXPECT_EQ(
        linesIn(
            "---\n- {book: 1, chapter: 1, verse: 1, text: a}\n- {book: 1, chapter: 1, verse: 2, text: b}\n"),
        "Gen 1:1 a\nGen 1:2 b\n");
    EXPECT_EQ(linesIn("Genesis:\n  1:\n    1: a\n    2: b\n  2:\n    1: c\n"),
              "Gen 1:1 a\nGen 1:2 b\nGen 2:1 c\n");
    EXPECT_EQ(linesIn("name: John\nchapters:\n-\n  - a\n  - b\n"), "John 1:1 a\nJohn 1:2 b\n");
}

TEST(YamlReader, ScalarsInEveryStyle)
{
    EXPECT_EQ(linesIn("name: Gen\n"
                      "chapters:\n"
                      "- - plain,\n"
                      "    on two lines\n"
                      "  - 'single ''quoted'''\n"
                      "  - \"double \\\"quoted\\\" \\u0411\\x6fg\"\n"
                      "  - |\n"
                      "    literal\n"
                      "    lines # text\n"
                      "  - >2- # a comment\n"
                      "      folded\n"
                      "  - 144\n"
                      "  - null\n"
                      "  - true # a comment\n"
                      "  -\n"),
              "Gen 1:1 plain, on two lines\nGen 1:2 single 'quoted'\nGen 1:3 double \"quoted\" Бog\n"
              "Gen 1:4 literal lines # text\nGen 1:5 folded\nGen 1:6 144\nGen 1:8 true\n");
}

TEST(YamlReader, EveryLetterOfTheValuesIsCounted)
{
    const SourceBible bible =
        read("books:\n- name: Gen # x\n  chapters:\n  - chapter: 1\n    verses:\n    - verse: 1\n"
             "      text: abc\n      note: de\n");
    EXPECT_EQ(bible.letters, 10u); // Gen, 1, 1, abc, de
    EXPECT_EQ(bible.findings.letters(ReaderRule::note), 2u);
}

/// A line separator is written with two characters and stored in three bytes.
TEST(YamlReader, EscapesLongerThanWhatIsWrittenAreRead)
{
    std::string written;
    std::string separators;
    for (unsigned int i = 0; i < 3000; ++i) {
        written += "\\L";
        separators += "\u2028";
    }
    const std::string lines = linesIn("Gen:\n  1:\n    1: \"a" + written + "b\"\n    2: c\n");
    EXPECT_TRUE(lines == "Gen 1:1 a" + separators + "b\nGen 1:2 c\n") << lines.size();
}

TEST(YamlReader, DocumentsWithoutContainersOrWithNullKeysHaveNoVerses)
{
    for (const char* yaml : {"", "# a comment\n", "\n---\n7\n", "---\nnull\n", "~: a\nnull: b\n? \n: c\n"})
        EXPECT_EQ(errorIn(yaml), "f.yaml: contains no verses") << yaml;
}

TEST(YamlReader, NullKeysBesideBooksArePassedOver)
{
    const SourceBible bible = read("null: abc\n~: de\n" + verses);
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало\nGen 1:2 А земята\n");
    EXPECT_EQ(bible.letters.value(), read(verses).letters.value() + 5);
}

TEST(YamlReader, LinesOfErrorsAreThoseOfTheSource)
{
    EXPECT_EQ(errorIn("# x\n\nbooks:\n- name: |\n    Genezis\n  chapters:\n  - - a\n"),
              "f.yaml:4: \"Genezis\" is not a known book: write its number from 1 to 66, its English name or "
              "its OSIS id, such as Gen (did you mean Gen?)");
    EXPECT_EQ(errorIn("name: Gen\nchapters:\n  # x\n  one:\n    1: a\n"),
              "f.yaml:4: \"one\" is not a chapter number");
}

TEST(YamlReader, BadYamlIsRefused)
{
    EXPECT_EQ(errorIn("books:\n- a: 'b\n"), "f.yaml:3: not valid YAML: found unexpected end of stream");
    EXPECT_EQ(errorIn("books:\n\t- a"),
              "f.yaml:2: not valid YAML: found character that cannot start any token");
    EXPECT_EQ(errorIn("a: b\nc\n"), "f.yaml:3: not valid YAML: could not find expected ':'");
    EXPECT_EQ(errorIn(""), "f.yaml: contains no verses");
    EXPECT_EQ(errorIn("# nothing\n"), "f.yaml: contains no verses");
    EXPECT_EQ(errorIn("text\n"), "f.yaml: contains no verses");
    EXPECT_EQ(errorIn("books: 1\n---\nbooks: 2\n"), "f.yaml:2: more than one document in the file");
    EXPECT_EQ(errorIn("? [a]\n: b\n"), "f.yaml:1: a key must be a text");
}

TEST(YamlReader, ReferencesWithinTheDocumentAreRefused)
{
    const std::string said = "anchors, aliases and tags of YAML are not read";
    EXPECT_EQ(errorIn("books: &a [x]\nb: *a\n"), "f.yaml:1: " + said);
    EXPECT_EQ(errorIn("books:\n- *a\n"), "f.yaml:2: " + said);
    EXPECT_EQ(errorIn("books: !!python/object:os.system x\n"), "f.yaml:1: " + said);
    EXPECT_EQ(errorIn("books: !x {}\n"), "f.yaml:1: " + said);
}

TEST(YamlReader, DirectiveIsNoText)
{
    for (const char* head : {"%YAML 1.1\n---\n", "# x\n%YAML 1.1\n# y\n--- # z\n", "%YAML 1.1\r\n---\r\n"})
        EXPECT_EQ(linesIn(head + verses), linesIn(verses)) << head;
}

TEST(YamlReader, LinesMayEndWithCrAlone)
{
    std::string withCr = "# x\n" + verses + "# y\n  note: |\n    z\n";
    std::replace(withCr.begin(), withCr.end(), '\n', '\r');
    EXPECT_EQ(linesIn(withCr), linesIn(verses));
}

TEST(YamlReader, DepthIsBounded)
{
    EXPECT_EQ(errorIn("\n" + std::string(101, '[')), "f.yaml:2: values are nested more than 100 deep");
    EXPECT_EQ(errorIn("a: " + std::string(100, '[')), "f.yaml:1: values are nested more than 100 deep");
}

TEST(YamlReader, IsFoundByItsKeys)
{
    const std::vector<std::string> yamls{verses,
                                         "%YAML 1.1\n---\n# x\n" + verses,
                                         "title: x\n\"books\":\n- a\n",
                                         "title: |-\n  x\n\n  y\nbooks:\n- a\n",
                                         "# x\rtitle: >\r  x\rbooks:\r- a\r",
                                         "- book: Gen\n  chapter: 1\n",
                                         "---\n-\n  verse: 1\n"};
    for (const std::string& yaml : yamls)
        EXPECT_EQ(detectFormat(yaml, "f"), SourceFormat::yaml) << yaml;
    for (const std::string other : {"Gen 1:1 a\nbooks: b\n", "Genesis:\n1 a\n", "text\n",
                                    "Gen\t1\t1\ttext: a\n", "title: |\n  x\ny\nbooks:\n"})
        EXPECT_NE(detectFormat(other, "f"), SourceFormat::yaml) << other;
    const test_support::TempFolder folder;
    EXPECT_EQ(readSourceFile(folder.write("f.txt", verses), {}).format, "YAML");
}

TEST(YamlReader, ExampleOfTheFormatPage)
{
    EXPECT_EQ(linesIn(test_support::exampleOf(KEDRIN_FORMATS_FOLDER "/yaml.md")),
              "Gen 1:1 В начало Бог създаде небето и земята.\nGen 1:2 А земята беше пуста и неустроена;\n");
}
