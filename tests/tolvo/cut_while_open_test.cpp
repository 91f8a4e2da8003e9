// Modules that are damaged while they are open, for example when a package manager replaces them.

#include "bible_walker.h"
#include "forked.h"
#include "module_files.h"
#include "temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace {

using namespace Kedrin::Tolvo;
using test_support::ForkedEnd;
using test_support::isPromisedEnd;
using test_support::TempFolder;

using Walk = void (*)(const CBible&);

/// Loads a valid module, truncates one of its files, and reads everything.
ForkedEnd walkAfterCut(const std::string& fileName, Walk walk)
{
    const TempFolder folder;
    test_support::smallModule().write(folder.path());
    return test_support::runForked([&] {
        const CBible bible(folder.path().string());
        std::filesystem::resize_file(folder.path() / fileName, 1);
        walk(bible);
        return 0;
    });
}

// Reading a file that was truncated after opening must not crash.
TEST(CutWhileOpen, FileTruncatedWhileOpenEndsTheProgramAsPromised)
{
    using namespace test_support;
    const std::vector<std::pair<std::string, Walk>> cases = {
        {"CompactText.bin", walkVerses}, {"CompactText.bin", walkScans}, {"CompactPoint.bin", walkVerses},
        {"CompactPoint.bin", walkScans}, {"Conc.bin", walkWords},        {"ConcP.bin", walkWords}};
    for (const auto& [fileName, walk] : cases) {
        const ForkedEnd end = walkAfterCut(fileName, walk);
        EXPECT_EQ(end.signal, SIGABRT) << fileName;
        EXPECT_TRUE(isPromisedEnd(end.standardError.substr(0, end.standardError.find('\n'))))
            << end.standardError;
    }
}

// The window continues to read and search, whichever file is truncated.
TEST(CutWhileOpen, ChaptersAndSearchesOfTheWindowLive)
{
    for (const char* fileName : {"CompactText.bin", "CompactPoint.bin", "Conc.bin", "ConcP.bin"}) {
        const ForkedEnd end = walkAfterCut(fileName, [](const CBible& bible) {
            test_support::walkChapters(bible);
            test_support::walkSearches(bible);
        });
        EXPECT_EQ(end.exitCode, 0) << fileName << end.standardError;
    }
}

TEST(CutWhileOpen, TextFilesAreNotNeededAfterTheLoading)
{
    for (const char* fileName :
         {"BibleTitles.txt", "BibleStructure.csv", "_Diff_.txt", "WordList.txt", "_Info_.txt"})
        EXPECT_EQ(walkAfterCut(fileName, test_support::walkAnswers).exitCode, 0) << fileName;
}

} // namespace
