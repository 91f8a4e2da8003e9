#include "file_vector.h"

#include "read_watch.h"
#include "spoiled.h"
#include "thrown.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

namespace {

using test_support::messageOf;
using test_support::ReadWatch;
using test_support::TempFolder;

constexpr const char* outOfRange = "CFileVector::operator [](): recordIndex out of range";
constexpr const char* ioError = "CFileVector::operator [](): IO error";

const std::string tenBytes("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A", 10);

/// A record file with the given bytes, and short functions to query it.
template <typename T>
class RecordFile
{
public:
    explicit RecordFile(const std::string& bytes) : m_path(m_folder.write("f", bytes)), vector(m_path.c_str())
    {}

    std::string rangeError(unsigned int index)
    {
        return messageOf<std::out_of_range>([&] { vector[index]; });
    }
    std::string readError(unsigned int index)
    {
        return messageOf<std::ios_base::failure>([&] { vector[index]; });
    }
    void shrinkTo(std::size_t byteCount) { std::filesystem::resize_file(m_path, byteCount); }

private:
    TempFolder m_folder;
    std::string m_path;

public:
    ut::CFileVector<T> vector;
};

TEST(FileVector, ReadsFourLittleEndianBytes)
{
    RecordFile<unsigned int> file(std::string("\x01\x02\x03\x04", 4));
    EXPECT_EQ(file.vector[0], 0x04030201u);
}

TEST(FileVector, ReadsTwoLittleEndianBytes)
{
    RecordFile<unsigned short> file(std::string("\x01\x02\xFF\xFE", 4));
    EXPECT_EQ(file.vector[0], 0x0201u);
    EXPECT_EQ(file.vector[1], 0xFEFFu);
}

TEST(FileVector, AnEmptyFileOpensAndHoldsNothing)
{
    RecordFile<unsigned int> file("");
    EXPECT_EQ(file.vector.size(), 0u);
    EXPECT_EQ(file.rangeError(0), outOfRange);
}

TEST(FileVector, TenBytesAreTwoLongRecordsAndAPart)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.vector.size(), 2u);
    EXPECT_EQ(file.vector[1], 0x08070605u);
    EXPECT_EQ(file.rangeError(3), outOfRange);
}

// The bounds check compares bytes, so the partial record is in bounds but cannot be read.
TEST(FileVector, APartialLastRecordIsAnIoError)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.readError(2), ioError);
    RecordFile<unsigned short> shorter(tenBytes.substr(0, 3));
    EXPECT_EQ(shorter.vector.size(), 1u);
    EXPECT_EQ(shorter.readError(1), ioError);
}

TEST(FileVector, TenBytesAreFiveShortRecords)
{
    RecordFile<unsigned short> file(tenBytes);
    EXPECT_EQ(file.vector.size(), 5u);
    for (unsigned int i = 0; i < 5; ++i)
        EXPECT_EQ(file.vector[i], (2 * i + 2) * 256 + 2 * i + 1);
    EXPECT_EQ(file.rangeError(5), outOfRange);
}

// A failed stream stays failed: callers must not regard later records as valid.
TEST(FileVector, AfterAShortReadEveryReadFails)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.vector[0], 0x04030201u);
    EXPECT_EQ(file.readError(2), ioError);
    EXPECT_EQ(file.readError(0), ioError);
    EXPECT_EQ(file.readError(1), ioError);
}

TEST(FileVector, AfterAShortReadTheBoundsAreStillTestedFirst)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.readError(2), ioError);
    EXPECT_EQ(file.rangeError(3), outOfRange);
    EXPECT_EQ(file.readError(0), ioError);
}

TEST(FileVector, AfreshReadsTheSameFileWithoutTheFailure)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.readError(2), ioError);
    ut::CFileVector<unsigned int> afresh = file.vector.afresh();
    EXPECT_EQ(afresh.size(), 2u);
    EXPECT_EQ(afresh[1], 0x08070605u);
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { afresh[2]; }), ioError);
    EXPECT_EQ(file.readError(0), ioError);
}

TEST(FileVector, ARefusedIndexDoesNoHarm)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.rangeError(3), outOfRange);
    EXPECT_EQ(file.vector[0], 0x04030201u);
}

// Offsets are 32-bit numbers: an index beyond a quarter (or half) of their range wraps to 0.
TEST(FileVector, TheByteOffsetWrapsAt32Bits)
{
    RecordFile<unsigned int> longs(tenBytes);
    EXPECT_EQ(longs.vector[0x40000000u], 0x04030201u);
    EXPECT_EQ(longs.vector[0x40000001u], 0x08070605u);
    EXPECT_EQ(longs.rangeError(0xFFFFFFFFu), outOfRange);
    RecordFile<unsigned short> shorts(tenBytes);
    EXPECT_EQ(shorts.vector[0x80000004u], 0x0A09u);
    EXPECT_EQ(shorts.rangeError(0x80000005u), outOfRange);
}

TEST(FileVector, TheReferenceIsToTheBufferedRecord)
{
    RecordFile<unsigned int> file(tenBytes);
    const unsigned int& record = file.vector[0];
    EXPECT_EQ(record, 0x04030201u);
    file.vector[1];
    EXPECT_EQ(record, 0x08070605u);
}

TEST(FileVector, WhatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    for (const auto& bad : test_support::unopenableFiles(folder)) {
        const std::string text = "CFileVector::CFileVector(): cannot open file " + bad.path;
        EXPECT_EQ(
            messageOf<std::ios_base::failure>([&] { ut::CFileVector<unsigned int> v(bad.path.c_str()); }),
            text)
            << bad.defect;
        EXPECT_EQ(
            messageOf<std::ios_base::failure>([&] { ut::CFileVector<unsigned short> v(bad.path.c_str()); }),
            text)
            << bad.defect;
    }
}

TEST(FileVector, AnyByteOffsetCanBeRead)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.vector.atOffset(0), 0x04030201u);
    EXPECT_EQ(file.vector.atOffset(3), 0x07060504u);
    EXPECT_EQ(file.vector.atOffset(6), 0x0A090807u);
}

TEST(FileVector, AByteOffsetIsCheckedAsAnIndexIs)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { file.vector.atOffset(10); }), outOfRange);
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { file.vector.atOffset(7); }), ioError);
    EXPECT_EQ(file.readError(0), ioError);
}

TEST(FileVector, ARunGivesRecordsInOneRead)
{
    RecordFile<unsigned short> file(tenBytes);
    std::vector<unsigned short> records(3);
    ReadWatch watch;
    EXPECT_EQ(file.vector.readRun(1, 3, records.data()), 3u);
    EXPECT_EQ(records, (std::vector<unsigned short>{0x0403, 0x0605, 0x0807}));
    ASSERT_EQ(watch.reads().size(), 1u);
    EXPECT_EQ(watch.reads()[0].byteOffset, 2u);
    EXPECT_EQ(watch.reads()[0].wanted, 6u);
}

TEST(FileVector, ARunEndsBeforeThePartialRecord)
{
    RecordFile<unsigned int> file(tenBytes);
    unsigned int records[5] = {};
    EXPECT_EQ(file.vector.readRun(0, 5, records), 2u);
    EXPECT_EQ(records[1], 0x08070605u);
    EXPECT_EQ(file.vector[0], 0x04030201u); // the partial record was not read, so nothing has failed
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { file.vector.readRun(2, 5, records); }), ioError);
    EXPECT_EQ(file.readError(0), ioError);
}

TEST(FileVector, ARunOfNothingIsNothing)
{
    RecordFile<unsigned int> file(tenBytes);
    EXPECT_EQ(file.vector.readRun(77, 0, nullptr), 0u);
}

TEST(FileVector, ARunThatBeginsBeyondTheEndIsOutOfRange)
{
    RecordFile<unsigned int> file(tenBytes);
    unsigned int record = 0;
    EXPECT_EQ(messageOf<std::out_of_range>([&] { file.vector.readRun(3, 1, &record); }), outOfRange);
}

// The length is that at the time of opening; records removed since then are errors.
TEST(FileVector, AFileThatIsTruncatedWhileOpenIsAnIoError)
{
    RecordFile<unsigned int> file(tenBytes);
    file.shrinkTo(6);
    EXPECT_EQ(file.vector.size(), 2u);
    EXPECT_EQ(file.vector[0], 0x04030201u);
    EXPECT_EQ(file.readError(1), ioError);
    EXPECT_EQ(file.readError(0), ioError);
}

TEST(FileVector, ABrokenDiskIsAnIoErrorForGood)
{
    RecordFile<unsigned int> file(tenBytes);
    {
        ReadWatch watch;
        watch.breakDisk();
        EXPECT_EQ(file.readError(0), ioError);
    }
    EXPECT_EQ(file.readError(0), ioError);
}

TEST(FileVector, AnAccessCostsOneRead)
{
    RecordFile<unsigned int> file(tenBytes);
    ReadWatch watch;
    file.vector[1];
    ASSERT_EQ(watch.reads().size(), 1u);
    EXPECT_EQ(watch.reads()[0].byteOffset, 4u);
    EXPECT_EQ(watch.reads()[0].wanted, 4u);
}

// A sparse file of more than 4 GiB: the records beyond are counted but are out of range of a 32-bit offset.
TEST(FileVector, AFileBeyond32BitsReadsItsFirstPart)
{
    const TempFolder folder;
    const std::string path = folder.write("f", tenBytes);
    std::error_code refused;
    std::filesystem::resize_file(path, (std::uintmax_t(1) << 32) + 8, refused);
    if (refused)
        GTEST_SKIP() << "the file system has no files of this length";
    ut::CFileVector<unsigned int> vector(path.c_str());
    EXPECT_EQ(vector.size(), 0x40000002u);
    EXPECT_EQ(vector[0x40000001u], 0x08070605u);
    unsigned int records[4] = {};
    EXPECT_EQ(vector.readRun(0x3FFFFFFEu, 4, records), 2u); // up to the last 32-bit offset
}

} // namespace
