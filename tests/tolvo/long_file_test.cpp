// Text files over the limit: each reader reports its own.

#include "input_file.h"
#include "module_files.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;
using test_support::TempFolder;

/// A sparse file: it has the length but no data.
std::string longFile(const TempFolder& folder)
{
    const std::string path = folder.write("f", "");
    std::filesystem::resize_file(path, ut::maxTextFileBytes + 1);
    return path;
}

TEST(LongFile, IsSaidByEachReader)
{
    const TempFolder folder;
    const std::string path = longFile(folder);
    const char* file = path.c_str();
    const auto failureOf = [](auto&& open) { return messageOf<std::ios_base::failure>(open); };
    const std::string tooLong = ": file " + path + " is longer than 64 MiB";
    EXPECT_EQ(failureOf([&] { CTitles{file}; }), "CTitles::CTitles()" + tooLong);
    EXPECT_EQ(failureOf([&] { CBibleStructure(file, 1); }), "CBibleSructure::CBibleSructure()" + tooLong);
    EXPECT_EQ(failureOf([&] { CDiff{file}; }), "CDiff::CDiff()" + tooLong);
    EXPECT_EQ(failureOf([&] { CWordList(file, "", true); }), "CWordList::CWordList()" + tooLong);
    EXPECT_EQ(failureOf([&] { CWordList::ValidateFile(file); }), "CWordList::CWordList()" + tooLong);
}

TEST(LongFile, IsSaidByLoadingAndProof)
{
    const TempFolder folder;
    const std::string module = folder.file("module");
    for (const char* name : {"BibleTitles.txt", "BibleStructure.csv", "_Diff_.txt", "WordList.txt"}) {
        test_support::smallModule().write(module);
        std::filesystem::resize_file(module + '/' + name, ut::maxTextFileBytes + 1);
        const std::string loading = messageOf<std::runtime_error>([&] { CBible{module}; });
        EXPECT_TRUE(loading.ends_with("/" + std::string(name) + " is longer than 64 MiB\"")) << loading;
        EXPECT_EQ(
            messageOf<std::runtime_error>([&] { CBibleModules(folder.path().string()).ValidateBible(0); }),
            loading);
    }
}

} // namespace
