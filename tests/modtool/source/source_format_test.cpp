#include "read_source.h"
#include "source_format.h"

#include "errors.h"
#include "source_text.h"
#include "temp_folder.h"
#include "text_input.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using namespace std::string_literals;
using test_support::linesOf;
using test_support::messageOf;
using test_support::TempFolder;

namespace {

const ReadOptions asDetected;

std::string linesIn(const std::string& content, const ReadOptions& options = asDetected)
{
    const TempFolder folder;
    return linesOf(readSourceFile(folder.write("f.txt", content), options));
}

std::string utf16(const std::u16string& text, bool bigEndian)
{
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

} // namespace

TEST(SourceFormat, IsFoundByTheContent)
{
    EXPECT_EQ(detectFormat("<?xml version='1.0'?>\n<!-- c -->\n<osis>", "f"), SourceFormat::osis);
    EXPECT_EQ(detectFormat("<XMLBIBLE>", "f"), SourceFormat::zefania);
    EXPECT_EQ(detectFormat("<bible translation='T'>", "f"), SourceFormat::beblia);
    EXPECT_EQ(detectFormat("\n\\id GEN", "f"), SourceFormat::usfm);
    EXPECT_EQ(detectFormat("Gen\t1\t1\ta", "f"), SourceFormat::verseLines);
    EXPECT_EQ(messageOf<CBuildError>([] { detectFormat("<html>", "f"); }),
              "f: is XML of an unknown format (its root element is \"html\")");
}

TEST(SourceFormat, ForcedFormatIsTakenAsGiven)
{
    const TempFolder folder;
    const std::string file = folder.write("f.txt", "text before\n\\id GEN\n\\c 1\n\\v 1 a");
    ReadOptions usfm;
    usfm.format = SourceFormat::usfm;
    EXPECT_EQ(linesOf(readSourceFile(file, usfm)), "Gen 1:1 a\n");
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(file, asDetected); }),
              file + ":1: a line must be BOOK, CHAPTER, VERSE and text, separated by tabs");
}

TEST(SourceFormat, FolderOfUsfmFilesIsReadInTheOrderOfNames)
{
    const TempFolder folder;
    folder.write("02-REV.SFM", "\\id REV\n\\c 1\n\\v 1 b");
    folder.write("70-GEN.usfm", "\\id GEN\n\\c 1\n\\v 1 a");
    folder.write("notes.txt", "no book");
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), asDetected)), "Rev 1:1 b\nGen 1:1 a\n");
}

TEST(SourceFormat, FolderWithoutNumbersIsInProtestantOrder)
{
    const TempFolder folder;
    for (const char* code : {"REV", "ROM", "JAS", "TOB", "GEN"})
        folder.write(std::string(code) + ".usfm", std::string("\\id ") + code + "\n\\c 1\n\\v 1 a");
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), asDetected)),
              "Gen 1:1 a\nTob 1:1 a\nRom 1:1 a\nJas 1:1 a\nRev 1:1 a\n");
}

TEST(SourceFormat, FolderWithoutUsfmIsRefused)
{
    const TempFolder folder;
    const std::string path = folder.path().string();
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(path, asDetected); }),
              path + ": contains no USFM or USX file (*.usfm, *.sfm, *.ptx, *.scp, *.usx)");
    ReadOptions osis;
    osis.format = SourceFormat::osis;
    EXPECT_EQ(messageOf<CBuildError>([&] { readSourceFile(path, osis); }),
              path + ": is a folder; only USFM, USX, JSON and plain lines are read from folders");
}

TEST(SourceFormat, FilesOfAFolderMayHaveOtherExtensions)
{
    for (const std::string extension : {".SCP", ".scp", ".SFM", ".Usfm", ".PTX"}) {
        const test_support::TempFolder folder;
        folder.write("01" + extension, "\\id GEN\n\\c 1\n\\v 1 a\n");
        folder.write("02" + extension, "\\id EXO\n\\c 1\n\\v 1 b\n");
        folder.write("03.bak", "\\id LEV\n\\c 1\n\\v 1 c\n");
        EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), {})), "Gen 1:1 a\nExod 1:1 b\n")
            << extension;
    }
    const test_support::TempFolder folder;
    folder.write("01.txt", "\uFEFF\\id GEN\n\\c 1\n\\v 1 a\n");
    folder.write("02", "\\id EXO\n\\c 1\n\\v 1 b\n");
    folder.write("readme.txt", "No \\id here.\n");
    folder.write("short", "\\i");
    EXPECT_EQ(linesOf(readSourceFile(folder.path().string(), {})), "Gen 1:1 a\nExod 1:1 b\n");
}

TEST(SourceFormat, BooksInProtestantAndOrthodoxOrder)
{
    const std::string lines =
        "Rom\t1\t1\ta\n1En\t1\t1\tx\nJas\t1\t1\ta\nTob\t1\t1\ta\nPs\t1\t1\ta\nNeh\t1\t1\ta\n";
    ReadOptions options;
    options.order = BookOrder::protestant;
    EXPECT_EQ(linesIn(lines, options), "Neh 1:1 a\nPs 1:1 a\nTob 1:1 a\nRom 1:1 a\nJas 1:1 a\n1En 1:1 x\n");
    options.order = BookOrder::orthodox;
    EXPECT_EQ(linesIn(lines, options), "Neh 1:1 a\nTob 1:1 a\nPs 1:1 a\nJas 1:1 a\nRom 1:1 a\n1En 1:1 x\n");
}

TEST(SourceFormat, MissingTitlesAreTheFilesName)
{
    const TempFolder folder;
    const SourceBible bible =
        readSourceFile(folder.write("Моята.usfm", "\\id GEN\n\\c 1\n\\v 1 a"), asDetected);
    EXPECT_EQ(bible.info.fullTitle, "Моята");
    EXPECT_EQ(bible.info.abbreviatedTitle, "Моята");
}

TEST(TextInput, Utf8WithAndWithoutMark)
{
    EXPECT_EQ(decodedText("\xEF\xBB\xBFБог", "f", ""), "Бог");
    EXPECT_EQ(decodedText("Бог", "f", ""), "Бог");
    EXPECT_EQ(messageOf<CBuildError>([] { decodedText("a\nb\xFF", "f", ""); }), "f:2: not valid UTF-8");
}

TEST(TextInput, CarriageReturnsAreLineEndsWhereThereAreNoOthers)
{
    EXPECT_EQ(decodedText("a\rb\r\rc", "f", ""), "a\nb\n\nc");
    EXPECT_EQ(decodedText("a\rb\r\nc", "f", ""), "a\rb\r\nc");
}

TEST(TextInput, Utf16WithMarkInBothOrders)
{
    const std::u16string text = u"\uFEFF" + std::u16string(20000, u'Б') + u"\U0001D11E";
    const std::string expected = decodedText(utf16(text, false), "f", "");
    EXPECT_EQ(expected.size(), 40004u);
    EXPECT_EQ(expected.substr(40000), "\U0001D11E");
    EXPECT_EQ(decodedText(utf16(text, true), "f", ""), expected);
}

TEST(TextInput, SurrogatePairMaySpanTwoBlocks)
{
    for (std::size_t before = 16380; before < 16390; ++before) {
        const std::u16string text = u"\uFEFF" + std::u16string(before, u'a') + u"\U0001D11E\U0001D11E";
        EXPECT_EQ(decodedText(utf16(text, false), "f", ""),
                  std::string(before, 'a') + "\U0001D11E\U0001D11E");
    }
}

TEST(TextInput, HalfAPairIsRefused)
{
    EXPECT_EQ(messageOf<CBuildError>([] { decodedText("\xFF\xFE\n\0\x34\xD8"s, "f", ""); }),
              "f:2: not valid UTF-16LE");
}

TEST(TextInput, Windows1251WhereDeclaredOrGiven)
{
    EXPECT_EQ(decodedText("<?xml version='1.0' encoding='windows-1251'?><a>\xC1</a>", "f", ""),
              "<?xml version='1.0' encoding='windows-1251'?><a>Б</a>");
    EXPECT_EQ(decodedText("\\id GEN\n\\ide CP-1251\n\xC1", "f", ""), "\\id GEN\n\\ide CP-1251\nБ");
    EXPECT_EQ(decodedText("\\id GEN\n\\ide 65001 - Unicode (UTF-8)\nБ", "f", ""),
              "\\id GEN\n\\ide 65001 - Unicode (UTF-8)\nБ");
    EXPECT_EQ(decodedText("\xC1", "f", "windows-1251"), "Б");
}

TEST(TextInput, UnknownEncodingIsRefused)
{
    EXPECT_EQ(messageOf<CBuildError>([] { decodedText("a", "f", "klingon"); }),
              "f: unknown encoding \"klingon\"");
}

TEST(SourceFormat, ReadersGetTheDecodedText)
{
    EXPECT_EQ(
        linesIn(
            "<?xml version='1.0' encoding='windows-1251'?><osis><verse osisID='Gen.1.1'>\xC1</verse></osis>"),
        "Gen 1:1 Б\n");
    EXPECT_EQ(
        linesIn(utf16(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><XMLBIBLE><BIBLEBOOK bnumber='1'>"
                      u"<CHAPTER cnumber='1'><VERS vnumber='1'>Б</VERS></CHAPTER></BIBLEBOOK></XMLBIBLE>",
                      false)),
        "Gen 1:1 Б\n");
    ReadOptions cyrillic;
    cyrillic.encoding = "windows-1251";
    EXPECT_EQ(linesIn("Gen\t1\t1\t\xC1\n", cyrillic), "Gen 1:1 Б\n");
}
