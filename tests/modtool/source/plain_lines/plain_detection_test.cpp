// Which files and folders are plain lines, and in which encoding.

#include "build_fixture.h"
#include "plain_text.h"
#include "read_source.h"
#include "source_format.h"
#include "temp_folder.h"
#include "text_input.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace plain_test;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

namespace {

TEST(PlainDetection, VerseLinesGoFirst)
{
    for (const char* text :
         {"Gen\t1\t1\ta\nExodus\t1\t1\tb\n", "# title: x\nGen\tx\t1\ta\n", "Xxx\t1\t1\ta\n",
          "../../x\t1\t1\ta\n", "\t1\t1\ta\n", "PrMan\t1\t1\ta\n", "PrManx\t1\t1\ta\n",
          "# title: x\n# y\n\nБит\t1\t1\ta\n", "words\n", "", "Gen 1 1 a\n", "1 a\n"})
        EXPECT_EQ(detectFormat(text, "f"), SourceFormat::verseLines) << text;
    for (const char* text :
         {"Genesis\t1\t1\ta\n", "Битие\t1\t1\ta\n", "1\t1\t1\ta\n", "Gen 1:1 a\n", "Gen|1|1|a\n", "[1:1] a\n",
          "#1:1#a\n", "# x: y\nБит\t1\t1\ta\n", "# title: x\nБит|1|1|a\n",
          "Book\tChapter\tVerse\tText\nGen\t1\t1\ta\n", "Verse\tChapter\tBook\tText\n1\t1\tGen\ta\n",
          "# T\n## Genesis\n1:1 a\n", "Юда\n1 a\n"})
        EXPECT_EQ(detectFormat(text, "f"), SourceFormat::plainLines) << text;
    EXPECT_EQ(detectFormat("1 a\n", "jude.txt"), SourceFormat::plainLines);
}

TEST(PlainDetection, FoldersOfFilesWithoutUsfm)
{
    const TempFolder folder;
    folder.write("02-exodus.dat", "#1:1#b\n");
    folder.write("01-genesis.dat", "#1:1#a\n");
    folder.write("README", "Words.\n");
    folder.write(".hidden", "Gen 1:1 x\n");
    const SourceBible bible = readSourceFile(folder.path().string(), {});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 a\nExod 1:1 b\n");
    EXPECT_EQ(bible.findings.text(), "read as       lines: #chapter:verse#text\n"
                                     "left out      the file README, which contains no verses\n"
                                     "interpreted   2 books by the names of their files, first at Gen 1:1\n");
    ReadOptions plain;
    plain.format = SourceFormat::plainLines;
    const TempFolder none;
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(none.path().string(), plain); }),
              none.path().string() + ": contains no file of plain lines");
    plain.book = "Gen";
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(folder.path().string(), plain); }),
              folder.path().string() + ": --book is for a file of plain lines");
}

TEST(PlainDetection, BookIsGivenOnlyToPlainLines)
{
    const TempFolder folder;
    ReadOptions options;
    options.book = "Jude";
    EXPECT_EQ(linesOf(readSourceFile(folder.write("a.txt", "1 a\n"), options)), "Jude 1:1 a\n");
    for (const char* text :
         {"\\id GEN\n\\c 1\n\\v 1 a\n", "<osis><verse osisID='Gen.1.1'>a</verse></osis>"}) {
        const std::string file = folder.write("b", text);
        EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(file, options); }),
                  file + ": --book is for a file of plain lines");
    }
}

TEST(PlainDetection, Windows1251IsRecognisedByItsLetters)
{
    const TempFolder folder;
    const std::string words =
        "\xC2 \xED\xE0\xF7\xE0\xEB\xEE \xC1\xEE\xE3 \xF1\xFA\xE7\xE4\xE0\xE4\xE5 \xED\xE5\xE1\xE5\xF2\xEE";
    const SourceBible bible = readSourceFile(folder.write("a.txt", "Gen 1:1 " + words + "\n"), {});
    EXPECT_EQ(linesOf(bible), "Gen 1:1 В начало Бог създаде небето\n");
    EXPECT_NE(bible.findings.text().find("encoding      windows-1251, recognised\n"), std::string::npos);
    const std::string broken = folder.write("b.txt", "Gen 1:1 \xC2\xC2\n");
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(broken, {}); }), broken + ":1: not valid UTF-8");
    ReadOptions utf8;
    utf8.encoding = "UTF-8";
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(folder.file("a.txt"), utf8); }),
              folder.file("a.txt") + ":1: not valid UTF-8");
}

TEST(PlainDetection, OtherEncodingsAreNotTakenForWindows1251)
{
    EXPECT_FALSE(isWindows1251("Les \xE9t\xE9s \xE0 l'\xE9t\xE9, o\xF9 l'\xE9t\xE9 \xE9tait \xE9t\xE9; "
                               "d\xE9j\xE0 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9 \xE9t\xE9"));
    // "в начало бог създаде небето и земята" in KOI8-R
    EXPECT_FALSE(isWindows1251("\xD7 \xCE\xC1\xDE\xC1\xCC\xCF \xC2\xCF\xC7 \xD3\xDF\xDA\xC4\xC1\xC4\xC5 "
                               "\xCE\xC5\xC2\xC5\xD4\xCF \xC9 \xDA\xC5\xCD\xD1\xD4\xC1"));
    EXPECT_FALSE(isWindows1251("В начало Бог създаде небето и земята.\xFF"));
    EXPECT_FALSE(isWindows1251("\xE0\xE1\xE2"));
}

} // namespace
