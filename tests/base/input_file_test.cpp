#include "input_file.h"

#include "allocation_watch.h"
#include "forked.h"
#include "read_watch.h"
#include "spoiled.h"
#include "thrown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace {

using test_support::messageOf;
using test_support::ReadWatch;
using test_support::TempFolder;

std::string readAt(ut::CInputFile& file, std::uint64_t byteOffset, std::size_t byteCount)
{
    std::string buffer(byteCount, '?');
    buffer.resize(file.readAt(byteOffset, buffer.data(), byteCount));
    return buffer;
}

TEST(InputFile, ReadsAtAnyPlaceInAnyOrder)
{
    const TempFolder folder;
    ut::CInputFile file(folder.write("f", "0123456789").c_str());
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.size(), 10u);
    EXPECT_EQ(readAt(file, 7, 3), "789");
    EXPECT_EQ(readAt(file, 0, 4), "0123");
}

TEST(InputFile, GivesFewerBytesAtTheEnd)
{
    const TempFolder folder;
    ut::CInputFile file(folder.write("f", "0123456789").c_str());
    EXPECT_EQ(readAt(file, 8, 5), "89");
    EXPECT_EQ(readAt(file, 10, 5), "");
    EXPECT_EQ(readAt(file, 4000000000u, 5), "");
    EXPECT_EQ(readAt(file, 3, 0), "");
}

TEST(InputFile, AnEmptyFileOpens)
{
    const TempFolder folder;
    ut::CInputFile file(folder.write("f", "").c_str());
    EXPECT_TRUE(file.isOpen());
    EXPECT_EQ(file.size(), 0u);
    EXPECT_EQ(readAt(file, 0, 1), "");
}

TEST(InputFile, WhatIsNoReadableFileDoesNotOpen)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder)) {
        ut::CInputFile file(bad.path.c_str());
        EXPECT_FALSE(file.isOpen()) << bad.defect;
        EXPECT_EQ(file.size(), 0u) << bad.defect;
        EXPECT_EQ(readAt(file, 0, 1), "") << bad.defect;
    }
}

TEST(InputFile, ADeviceThatReadsAsEmptyIsAnEmptyFile)
{
    const TempFolder folder;
    std::filesystem::create_symlink("/dev/null", folder.path() / "link");
    for (const std::string& name : {std::string("/dev/null"), folder.file("link")}) {
        ut::CInputFile file(name.c_str());
        EXPECT_TRUE(file.isOpen());
        EXPECT_EQ(file.size(), 0u);
        EXPECT_EQ(readAt(file, 0, 4), "");
        std::string content = "left over";
        EXPECT_TRUE(ut::read_text_file(name.c_str(), content));
        EXPECT_EQ(content, "");
    }
    for (const char* name : {"/dev/zero", "/dev/urandom", "/dev/full"})
        EXPECT_FALSE(ut::CInputFile(name).isOpen()) << name;
}

TEST(InputFile, ErrnoTellsWhyItDoesNotOpen)
{
    const TempFolder folder;
    const std::pair<std::string, int> reasons[] = {{folder.file("missing"), ENOENT},
                                                   {folder.write("file", "") + "/inside", ENOTDIR},
                                                   {folder.path().string(), 0},
                                                   {"/dev/zero", 0}};
    for (const auto& [name, reason] : reasons) {
        errno = EIO;
        EXPECT_FALSE(ut::CInputFile(name.c_str()).isOpen());
        EXPECT_EQ(errno, reason) << name;
    }
}

TEST(InputFile, ALinkToAFileOpens)
{
    const TempFolder folder;
    std::filesystem::create_symlink(folder.write("f", "abc"), folder.path() / "link");
    EXPECT_TRUE(ut::CInputFile(folder.file("link").c_str()).isOpen());
}

TEST(InputFile, ClosesWhatItOpened)
{
    const TempFolder folder;
    const std::string path = folder.write("f", "abc");
    const int before = ::open("/dev/null", O_RDONLY);
    ::close(before);
    for (const auto& name : {path, folder.path().string()})
        ut::CInputFile(name.c_str());
    const int after = ::open("/dev/null", O_RDONLY);
    ::close(after);
    EXPECT_EQ(before, after);
}

TEST(InputFile, CopiesShareTheFileUntilTheLastOfThemGoes)
{
    const TempFolder folder;
    auto first = std::make_unique<ut::CInputFile>(folder.write("f", "0123456789").c_str());
    const int before = test_support::openDescriptors();
    ut::CInputFile copy = *first;
    first.reset();
    EXPECT_EQ(test_support::openDescriptors(), before);
    EXPECT_EQ(copy.size(), 10u);
    EXPECT_EQ(readAt(copy, 7, 3), "789");
    copy = ut::CInputFile("");
    EXPECT_EQ(test_support::openDescriptors(), before - 1);
}

TEST(InputFile, ReadsOnAfterASignal)
{
    const TempFolder folder;
    ut::CInputFile file(folder.write("f", "0123456789").c_str());
    ReadWatch watch;
    watch.interrupt(2);
    EXPECT_EQ(readAt(file, 2, 3), "234");
    EXPECT_EQ(watch.reads().size(), 3u);
}

TEST(InputFile, PutsPartialReadsTogether)
{
    const TempFolder folder;
    ut::CInputFile file(folder.write("f", "0123456789").c_str());
    ReadWatch watch;
    watch.giveAtMost(4);
    EXPECT_EQ(readAt(file, 1, 9), "123456789");
    EXPECT_EQ(watch.reads().size(), 3u);
}

TEST(InputFile, ABrokenDiskGivesWhatCameBefore)
{
    const TempFolder folder;
    ut::CInputFile file(folder.write("f", "0123456789").c_str());
    ReadWatch watch;
    watch.breakDisk();
    EXPECT_EQ(readAt(file, 0, 4), "");
}

TEST(TextFile, IsReadWhole)
{
    const TempFolder folder;
    std::string content = "left over";
    EXPECT_TRUE(ut::read_text_file(folder.write("f", std::string("a\0b\r\n", 5)).c_str(), content));
    EXPECT_EQ(content, std::string("a\0b\r\n", 5));
    EXPECT_TRUE(ut::read_text_file(folder.write("empty", "").c_str(), content));
    EXPECT_EQ(content, "");
}

TEST(TextFile, CannotBeWhatIsNoReadableFile)
{
    const TempFolder folder;
    std::string content;
    for (const auto& bad : test_support::unopenableFiles(folder))
        EXPECT_FALSE(ut::read_text_file(bad.path.c_str(), content)) << bad.defect;
}

TEST(TextFile, ThatCannotBeReadToItsEndIsRefused)
{
    const TempFolder folder;
    const std::string path = folder.write("f", "0123456789");
    std::string content;
    ReadWatch watch;
    watch.breakDisk();
    EXPECT_FALSE(ut::read_text_file(path.c_str(), content));
    EXPECT_EQ(errno, EIO);
}

TEST(TextFile, ThatEndsBeforeItsLengthIsNotCalledTooLong)
{
    const TempFolder folder;
    const std::string path = folder.write("f", "0123456789");
    const std::string text = "CTitles::CTitles(): error opening file " + path;
    ReadWatch watch;
    watch.giveAtMost(0);
    errno = EFBIG;
    EXPECT_EQ(
        messageOf<std::ios_base::failure>([&] { ut::text_of_file("CTitles::CTitles()", path.c_str()); }),
        text);
}

// The files here are sparse: they have the length but no data.
TEST(TextFile, LongerThanTheLimitTakesNoMemory)
{
    const TempFolder folder;
    const std::string path = folder.write("f", "");
    std::string content;
    std::filesystem::resize_file(path, ut::maxTextFileBytes + 1);
    {
        const test_support::AllocationWatch watch;
        EXPECT_FALSE(ut::read_text_file(path.c_str(), content));
        EXPECT_EQ(errno, EFBIG);
        EXPECT_LT(watch.total(), 4096u);
    }
    std::filesystem::resize_file(path, ut::maxTextFileBytes);
    EXPECT_TRUE(ut::read_text_file(path.c_str(), content));
    EXPECT_EQ(content.size(), ut::maxTextFileBytes);
}

} // namespace
