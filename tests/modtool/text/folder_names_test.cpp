// Names of folders, compared with what the reader's engine takes from them.

#include "folder_names.h"

#include "temp_folder.h"
#include "tolvo_bible/folder_name.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

using Kedrin::ModTool::folderSortingKey;
using Kedrin::ModTool::folderTitle;
using Kedrin::ModTool::subFolders;
using test_support::TempFolder;

/// Letters of one to four bytes in both cases, parts of them, and bytes of Windows-1251.
std::string anyName(std::mt19937& random)
{
    static const std::vector<std::string> parts = {
        "a",    "B", "б", "Ж", "İ", "ẞ", "я",        "\xD0", "\xE0", "\xF0", "\x98", "\xED\xA0\x80",
        "\xFF", "𝔄", "€", "1", "-", " ", "\xC0\x80", "Ё",    "�"};
    std::string name;
    for (std::size_t count = 1 + random() % 6; count > 0; --count)
        name += parts[random() % parts.size()];
    return name;
}

TEST(FolderNames, AreTitlesAsInTheEngine)
{
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        const std::string path = "/modules/" + anyName(random);
        ASSERT_EQ(folderTitle(path), Kedrin::Tolvo::folder_name(path)) << path;
    }
}

TEST(FolderNames, OfAPathThatEndsWithDotsAreThoseOfTheFolder)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.path() / "one" / "two");
    EXPECT_EQ(folderTitle(folder.file("one/.")), "one");
    EXPECT_EQ(folderTitle(folder.file("one/two/..")), "one");
}

TEST(FolderNames, AreSortedAsInTheEngine)
{
    std::mt19937 random(11);
    const TempFolder folder;
    for (int i = 0; i < 400; ++i)
        std::filesystem::create_directory(folder.path() / anyName(random));
    std::filesystem::create_directory(folder.path() / ".hidden");
    std::filesystem::create_directory_symlink("a", folder.path() / "link");
    std::filesystem::create_directory_symlink("missing", folder.path() / "broken");
    std::ofstream(folder.path() / "file") << "no folder";
    EXPECT_EQ(subFolders(folder.path().string()), Kedrin::Tolvo::sub_folders(folder.path().string()));
    EXPECT_GT(subFolders(folder.path().string()).size(), 300u);
}

TEST(FolderNames, OfAFolderThatDoesNotExistAreNone)
{
    EXPECT_EQ(subFolders("/does/not/exist"), std::vector<std::string>());
}

TEST(FolderNames, AreSortedAlikeInEveryLanguageOfTheUser)
{
    const icu::Locale before = icu::Locale::getDefault();
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault("tr", status); // where I is no capital of i
    EXPECT_EQ(folderSortingKey("KJVI").first, u"kjvi");
    icu::Locale::setDefault(before, status);
}

} // namespace
