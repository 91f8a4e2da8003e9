// Counts in the files of a module do not determine allocations: a module that passes validation has no more
// books, chapters and verses than its files contain.

#include "allocation_watch.h"
#include "module_files.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Kedrin::Tolvo;
using test_support::AllocationWatch;
using test_support::ModuleFiles;
using test_support::TempFolder;

constexpr std::size_t enough = 1u << 20; ///< for a small module, including its messages

/// Bytes that the validation of smallModule() with one changed file allocates.
std::size_t memoryOfProof(const std::string& fileName, const std::string& bytes, bool isSound)
{
    const TempFolder folder;
    ModuleFiles files = test_support::smallModule();
    files.bytes[fileName] = bytes;
    files.write(folder.path() / "module");
    const CBibleModules modules(folder.path().string());
    const AllocationWatch watch;
    const std::string refusal =
        test_support::messageOf<std::runtime_error>([&] { modules.ValidateBible(0); });
    EXPECT_EQ(refusal == "<nothing was thrown>", isSound) << refusal;
    return watch.total();
}

TEST(ProofMemory, HugeCountsOfTheStructureTakeNone)
{
    for (const char* structure :
         {"2 20000000 1\r\n1 1\r\n", "2 2000000000 1\r\n1 1\r\n", "2 2 4000000000\r\n1 1\r\n",
          "2 4294967290 1\r\n1 1\r\n", "2000000000 2 1\r\n1 1\r\n", "2 2 1\r\n1000000000 1\r\n"})
        EXPECT_LT(memoryOfProof("BibleStructure.csv", structure, false), enough) << structure;
    EXPECT_LT(memoryOfProof("BibleStructure.csv", "2 2 1\r\n1 1\r\n4000000000 1\r\n", true), enough);
}

TEST(ProofMemory, HugeCountsOfTheTitlesTakeNone)
{
    const std::string rest = " 0 1\r\nA\r\nB\r\nA\r\nB\r\nA\r\nB\r\n";
    for (const char* count : {"2000000000", "4294967295", "257", "30"})
        EXPECT_LT(memoryOfProof("BibleTitles.txt", count + rest, false), enough) << count;
}

/// A book takes five bytes at least.
TEST(ProofMemory, ManyBooksOfTheTitlesTakeWhatTheFileSupports)
{
    constexpr std::size_t fileBytes = 1u << 20;
    const std::string zeros(fileBytes, '\0');
    EXPECT_LT(memoryOfProof("BibleTitles.txt", std::to_string(fileBytes - 1) + zeros, false),
              2 * enough + fileBytes);
    EXPECT_LT(memoryOfProof("BibleTitles.txt", std::to_string(fileBytes / 5) + zeros, false), 24 * fileBytes);
}

TEST(ProofMemory, ChaptersWithoutVersesTakeWhatTheFileSupports)
{
    std::string structure = "2 2 1\r\n100000";
    for (unsigned int chapter = 0; chapter < 100000; ++chapter)
        structure += chapter == 0 ? " 1" : " 0";
    EXPECT_LT(memoryOfProof("BibleStructure.csv", structure, true), 8 * structure.size());
}

TEST(ProofMemory, FirstChapterIsReadInPieces)
{
    constexpr unsigned int verseCount = 65535; // all with the same record of 65535 bytes, 4 GiB in total
    const TempFolder folder;
    ModuleFiles files = test_support::smallModule();
    files.bytes["BibleStructure.csv"] = "1 65534\r\n1 1\r\n";
    files.bytes["CompactText.bin"] = "\xFF\xFF" + std::string(65535, 'x');
    files.bytes["CompactPoint.bin"] = std::string(4 * verseCount, '\0');
    files.write(folder.path() / "module");
    const CBibleModules modules(folder.path().string());
    const AllocationWatch watch;
    EXPECT_NO_THROW(modules.ValidateBible(0));
    EXPECT_LT(watch.total(), 4 * enough);
}

TEST(ProofMemory, GlobalStructureTakesWhatItsFileSupports)
{
    std::string structure;
    for (unsigned int book = 0; book < 77; ++book)
        structure += "1 4000000000\n";
    const TempFolder folder;
    for (const std::string& text : {structure, "4000000000 " + structure, std::string("1 1 2000000000 1")}) {
        folder.write("BibleStructure.txt", text);
        const CBibleModules modules(folder.path().string());
        const AllocationWatch watch;
        EXPECT_TRUE(test_support::messageOf<std::ios_base::failure>([&] {
                        modules.globalStructure();
                    }).starts_with("CBibleSructure::CBibleSructure(): error reading file "));
        EXPECT_LT(watch.total(), enough);
    }
}

} // namespace
