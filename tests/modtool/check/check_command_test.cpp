#include "check_fixture.h"
#include "exit_codes.h"
#include "global_books.h"
#include "program.h"
#include "sword_access.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace check_test;
using namespace Kedrin::ModTool;
using test_support::cp1251;
using test_support::smallModule;
using test_support::TempFolder;

struct Ended
{
    int exitCode;
    std::string out;
    std::string err;
};

Ended run(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "kedrin-module");
    std::vector<const char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    std::ostringstream out, err;
    const int exitCode = runProgram(static_cast<int>(argv.size()), argv.data(), CSword(), out, err, nullptr);
    return {exitCode, out.str(), err.str()};
}

/// smallModule() with two errors of one kind, one warning and one note.
ModuleFiles spoiledModule()
{
    ModuleFiles files = withWords({{cp1251("Бог"), {3}}, {cp1251("земя"), {2}}, {cp1251("рече"), {1}}});
    files.bytes["_Info_.txt"] = "A\nB\nC\n";
    files.bytes.erase("WordPoint.bin");
    return files;
}

const std::string figures = "2 books, 4 verses (1 empty), 4 map both ways, 3 words\n";
const std::string noteText =
    "  note info-copyright (1): There is no notice of who made the text and how it may be "
    "used. Add the copyright after the third line.\n"
    "    _Info_.txt\n";
const std::string warningText =
    "  warning word-points-missing (1): WordPoint.bin is missing; this reader does not need "
    "it, but others may. Build the module again.\n"
    "    WordPoint.bin\n";
const std::string errorText =
    "  error conc-missing-verse (2): The concordance lacks a verse that contains the word: "
    "the search misses it. Build the module again.\n";

TEST(CheckCommand, SoundModule)
{
    const TempFolder folder;
    smallModule().write(folder.path());
    const Ended result = run({"check", folder.path().string() + "/"});
    EXPECT_EQ(result.out, folder.path().string() + ": sound; " + figures);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(CheckCommand, SpoiledModule)
{
    const TempFolder folder;
    spoiledModule().write(folder.path());
    const Ended result = run({"check", folder.path().string()});
    EXPECT_EQ(result.out, folder.path().string() + ": 2 errors, 1 warning, 1 note; " + figures + noteText +
                              warningText + errorText + "    Бог: Gen 1:1\n    рече: Gen 2:1\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exitCode, 1);
}

TEST(CheckCommand, PositionsOfAFinding)
{
    const TempFolder folder;
    spoiledModule().write(folder.path());
    EXPECT_TRUE(run({"check", "--places", "1", folder.path().string()})
                    .out.ends_with(errorText + "    Бог: Gen 1:1\n    and 1 more\n"));
    EXPECT_TRUE(run({"check", "--places", "0", folder.path().string()})
                    .out.ends_with(errorText + "    and 2 more\n"));
}

TEST(CheckCommand, QuietTellsByItsExitCode)
{
    const TempFolder folder;
    spoiledModule().write(folder.path());
    const Ended result = run({"check", "-q", folder.path().string()});
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(result.exitCode, 1);
}

TEST(CheckCommand, StrictTakesWarningsForDefects)
{
    const TempFolder folder;
    ModuleFiles files = smallModule();
    files.bytes.erase("WordPoint.bin");
    files.write(folder.path());
    EXPECT_EQ(run({"check", folder.path().string()}).exitCode, 0);
    EXPECT_EQ(run({"check", "--strict", folder.path().string()}).exitCode, 1);
    EXPECT_EQ(run({"check", folder.path().string()}).out,
              folder.path().string() + ": sound, 1 warning; " + figures + warningText);
}

TEST(CheckCommand, Json)
{
    const TempFolder folder;
    ModuleFiles files = smallModule();
    files.bytes["_Info_.txt"] = "A\nB\nC\n";
    files.write(folder.path());
    const Ended result = run({"check", "--json", folder.path().string()});
    EXPECT_EQ(result.out, R"({
  "directory": null,
  "modules": [
    {
      "folder": ")" + folder.path().string() +
                              R"(",
      "sound": true,
      "books": 2,
      "verses": 4,
      "emptyVerses": 1,
      "keptPlaces": 4,
      "words": 3,
      "findings": [
        {
          "check": "info-copyright",
          "severity": "note",
          "count": 1,
          "advice": "There is no notice of who made the text and how it may be used. Add the copyright after the third line.",
          "places": [
            "_Info_.txt"
          ]
        }
      ]
    }
  ],
  "unchecked": [],
  "errors": 0,
  "warnings": 0,
  "notes": 1,
  "sound": true
}
)");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(CheckCommand, JsonOfNamesThatAreNotUtf8)
{
    const TempFolder folder;
    smallModule().write(folder.path() / "a\xFF");
    EXPECT_NE(run({"check", "--json", folder.file("a\xFF")}).out.find("/a\uFFFD\""), std::string::npos);
}

TEST(CheckCommand, ModulesDirectory)
{
    const TempFolder folder;
    const std::string path = folder.path().string();
    smallModule().write(folder.path() / "a");
    spoiledModule().write(folder.path() / "b");
    smallModule().write(folder.path() / ".hidden");
    folder.write("BibleStructure.txt", globalStructureFile());
    const Ended result = run({"check", path});
    EXPECT_EQ(result.out,
              path + ": no defects\n" + path + "/a: sound; " + figures + path +
                  "/b: 2 errors, 1 warning, 1 note; " + figures + noteText + warningText + errorText +
                  "    Бог: Gen 1:1\n    рече: Gen 2:1\n2 modules: 2 errors, 1 warning, 1 note\n");
    EXPECT_EQ(result.exitCode, 1);
}

TEST(CheckCommand, DirectoryWithoutGlobalStructure)
{
    const TempFolder folder;
    smallModule().write(folder.path() / "a");
    EXPECT_EQ(lines(checkDirectory(folder.path().string(), {folder.file("a")}, 5)),
              std::vector<std::string>{"common-structure-missing (1): BibleStructure.txt"});
    folder.write("BibleStructure.txt", "50 31 25 ");
    EXPECT_EQ(lines(checkDirectory(folder.path().string(), {folder.file("a")}, 5)),
              std::vector<std::string>{"common-structure-differs (1): BibleStructure.txt"});
}

TEST(CheckCommand, DirectoryWithEqualTitles)
{
    const TempFolder folder;
    folder.write("BibleStructure.txt", globalStructureFile());
    smallModule().write(folder.path() / "a");
    smallModule().write(folder.path() / "b");
    EXPECT_EQ(lines(checkDirectory(folder.path().string(), {folder.file("a"), folder.file("b")}, 5)),
              std::vector<std::string>{"modules-same-title (1): a, b: Малък превод"});
}

TEST(CheckCommand, FolderWithoutAModuleCannotBeChecked)
{
    const TempFolder folder;
    const std::string path = folder.path().string();
    for (const std::string& name : {path, path + "/nothing", folder.write("file", "x")}) {
        const Ended result = run({"check", name});
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "kedrin-module: " + name + ": is neither a module nor a folder of modules\n");
        EXPECT_EQ(result.exitCode, 3);
    }
}

TEST(CheckCommand, AFolderOfNoFilesInAModulesDirectoryIsADamagedModule)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.path() / "a");
    const Ended result = run({"check", folder.path().string()});
    EXPECT_NE(result.out.find("  error file-missing (8): "), std::string::npos) << result.out;
    EXPECT_EQ(result.exitCode, 1);
}

TEST(CheckCommand, Usage)
{
    const std::string again = "\nkedrin-module: try kedrin-module --help\n";
    EXPECT_EQ(run({"check"}).err, "kedrin-module: check requires MODULE or --list, but not both" + again);
    EXPECT_EQ(run({"check", "--list", "x"}).err,
              "kedrin-module: check requires MODULE or --list, but not both" + again);
    EXPECT_EQ(run({"check", "--places", "1001", "x"}).exitCode, run({"check"}).exitCode);
    EXPECT_EQ(run({"check"}).exitCode, static_cast<int>(exitUsage));
}

/// Escaped for a Markdown page.
std::string escaped(std::string_view text)
{
    std::string page;
    for (const char c : text)
        page += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
    return page;
}

TEST(CheckCommand, ManualHasTheTableOfChecks)
{
    std::ifstream in(KEDRIN_MANUAL_PAGE);
    std::stringstream page;
    page << in.rdbuf();
    std::string rows = "| Check | Severity | What is wrong, and what to do |\n|---|---|---|\n";
    for (const Check& check : checkTable())
        rows += "| " + std::string(check.id) + " | " + std::string(severityName(check.severity)) + " | " +
                escaped(check.advice) + " |\n";
    EXPECT_NE(page.str().find("\n\n" + rows + "\n"), std::string::npos) << rows;
}

TEST(CheckCommand, ListIsTheTableOfChecks)
{
    std::istringstream out(run({"check", "--list"}).out);
    std::string line;
    for (const Check& check : checkTable()) {
        ASSERT_TRUE(std::getline(out, line));
        std::istringstream words(line);
        std::string id, severity;
        words >> id >> severity;
        EXPECT_EQ(id, check.id);
        EXPECT_EQ(severity, severityName(check.severity));
        EXPECT_TRUE(line.ends_with("  " + std::string(check.advice))) << line;
    }
    EXPECT_FALSE(std::getline(out, line));
}

TEST(CheckCommand, WhatIsBuiltIsSound)
{
    const TempFolder folder;
    const std::string source = folder.write("source.tsv", "Gen\t1\t1\tВ начало, don't & <b> 3:16 Бог-Отец\n"
                                                          "Gen\t1\t3\tбог 1,5 и\nJonah\t2\t1\tИона\n");
    ASSERT_EQ(run({"build", source, folder.file("m/a")}).exitCode, 0);
    const Ended result = run({"check", "--strict", folder.file("m")});
    EXPECT_EQ(result.exitCode, 0) << result.out;
    EXPECT_NE(result.out.find("1 module: sound, 1 note\n"), std::string::npos) << result.out;
}

} // namespace
