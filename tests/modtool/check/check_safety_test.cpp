// Whatever the files of a module contain, its check ends soon and without using much memory.

#include "allocation_watch.h"
#include "bible_walker.h"
#include "check_fixture.h"
#include "memory_file.h"
#include "spoiled.h"
#include "tolvo_bible/bible.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace {

using namespace check_test;
using namespace Kedrin::ModTool;
using namespace Kedrin::Tolvo;
using test_support::smallModule;

std::string megabytes(std::size_t count, const std::string& text)
{
    std::string all;
    while (all.size() < count << 20)
        all += text;
    return all;
}

/// 65535 verses in one chapter, all of them the same record of 65535 bytes.
ModuleFiles oneTextForAllVerses(const std::string& pattern)
{
    std::string verse;
    while (verse.size() < 65535)
        verse += pattern;
    verse.resize(65535);
    ModuleFiles files = smallModule();
    files.bytes["BibleTitles.txt"] = "1 0\nA\nB\nC\n";
    files.bytes["BibleStructure.csv"] = "1 65535\n";
    files.bytes["CompactText.bin"] = "\xFF\xFF" + verse;
    files.bytes["CompactPoint.bin"] = std::string(4 * 65535, '\0');
    return files;
}

/// Whether no line has this prefix.
bool isQuietOn(const std::vector<std::string>& findings, const std::string& check)
{
    return std::none_of(findings.begin(), findings.end(),
                        [&](const std::string& line) { return line.starts_with(check); });
}

/// Calls every operation of the engine; a module without errors must neither end the program nor cause
/// exceptions.
void walk(const std::string& folder)
{
    const CBible bible(folder);
    test_support::walkAnswers(bible);
    test_support::walkVerses(bible);
    test_support::walkChapters(bible);
    test_support::walkScans(bible);
    test_support::walkWords(bible);
    test_support::walkSearches(bible);
}

/// smallModule() with one file in memory, so that it can be replaced thousands of times.
class SpoiledModule
{
public:
    explicit SpoiledModule(const std::string& name) : m_name(name) { smallModule().write(m_folder.path()); }

    void check(const std::string& spoiled) const
    {
        const test_support::MemoryFile file(spoiled);
        std::error_code ignored;
        if (std::filesystem::read_symlink(m_folder.path() / m_name, ignored) != file.path()) {
            std::filesystem::remove(m_folder.path() / m_name);
            std::filesystem::create_symlink(file.path(), m_folder.path() / m_name);
        }
        const std::string path = m_folder.path().string();
        if (checkModule(path, 1).findings.count(Severity::error) == 0) {
            EXPECT_NO_THROW(walk(path)) << m_name << ": " << spoiled;
        }
    }

private:
    test_support::TempFolder m_folder;
    std::string m_name;
};

TEST(CheckSafety, SpoiledFilesAreCheckedToTheEndAndWhatIsSoundCanBeRead)
{
    for (const auto& file : smallModule().bytes) {
        const SpoiledModule module(file.first);
        const auto check = [&](const std::string& spoiled) { module.check(spoiled); };
        test_support::forEveryCut(file.second, check);
        if (file.second.size() < 40) // the longer ones are titles, in which all bytes are equivalent
            test_support::forEverySpoiledByte(file.second, check);
    }
}

TEST(CheckSafety, PipesAndDevicesDoNotBlock)
{
    const test_support::TempFolder folder;
    for (const auto& [defect, path] : test_support::unopenableFiles(folder)) {
        const test_support::TempFolder module;
        smallModule().write(module.path());
        std::filesystem::remove(module.file("Conc.bin"));
        std::error_code ignored;
        std::filesystem::create_symlink(path, module.file("Conc.bin"), ignored);
        EXPECT_EQ(lines(checkModule(module.path().string(), 1).findings),
                  std::vector<std::string>{"file-missing (1): Conc.bin"})
            << defect;
    }
}

TEST(CheckSafety, AFileOverTheLimitIsNotRead)
{
    for (const auto& [name, bytes] : smallModule().bytes) {
        const test_support::TempFolder folder;
        smallModule().write(folder.path());
        std::filesystem::resize_file(folder.path() / name, (64u << 20) + 1);
        const test_support::AllocationWatch watch;
        const CFindings findings = checkModule(folder.path().string(), 1).findings;
        EXPECT_LT(watch.total(), 8u << 20) << name;
        EXPECT_EQ(lines(findings), std::vector<std::string>{"size-limit (1): " + name + ": 67108865 bytes"});
    }
}

TEST(CheckSafety, SharedRecordsDoNotMultiplyTheWork)
{
    for (const std::string pattern : {"<", "&zwnj;", "<a b='", "<b>", "a "}) {
        const ModuleFiles files = oneTextForAllVerses(pattern);
        EXPECT_FALSE(isQuietOn(findingsOf(files), "size-limit")) << pattern;
    }
}

TEST(CheckSafety, SharedEntriesDoNotMultiplyTheWork)
{
    ModuleFiles files = smallModule();
    files.bytes["WordList.txt"] = megabytes(2, "a\r\n");
    files.bytes["Conc.bin"] = "\xFF\xFF" + std::string(2 * 65535, '\1');
    files.bytes["ConcP.bin"] = std::string(4u << 20, '\0');
    EXPECT_FALSE(isQuietOn(findingsOf(files), "size-limit"));
}

TEST(CheckSafety, AnEndlessWordListIsAbandoned)
{
    ModuleFiles files = smallModule();
    files.bytes["WordList.txt"] = megabytes(4, "a\n");
    EXPECT_FALSE(isQuietOn(findingsOf(files), "size-limit (1): WordList.txt"));
}

TEST(CheckSafety, HugeNumbersCostNothing)
{
    for (const std::string counts : {"1 4294967295 1 4294967295", "2 4294967295 4294967295 1 1"}) {
        const ModuleFiles files = withFile("BibleStructure.csv", counts);
        const test_support::TempFolder folder;
        files.write(folder.path());
        const test_support::AllocationWatch watch;
        EXPECT_FALSE(isQuietOn(lines(checkModule(folder.path().string(), 1).findings), "structure-too-many"));
        EXPECT_LT(watch.total(), 16u << 20);
    }
}

} // namespace
