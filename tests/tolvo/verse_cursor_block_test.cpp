// What a scan needs from a verse cursor besides the verses: the block in which they were read.

#include "module_files.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::TempFolder;

class VerseCursorBlock : public testing::Test
{
protected:
    CBibleText text(const ModuleFiles& files) const
    {
        files.write(folder.path());
        return CBibleText(folder.file("CompactText.bin").c_str(), folder.file("CompactPoint.bin").c_str());
    }

    TempFolder folder;
};

TEST_F(VerseCursorBlock, VersesReadTogetherShareOneBlock)
{
    CBibleText verses = text(test_support::smallModule());
    CVerseCursor cursor(verses, 0, 4);
    ASSERT_TRUE(cursor.next());
    const unsigned int blockNum = cursor.blockNum();
    const char* const blockEnd = cursor.blockEnd();
    const char* lastText = cursor.text().data();
    EXPECT_EQ(blockEnd - cursor.text().data(), 26); // all 28 bytes of the file except the first two
    while (cursor.next()) {
        EXPECT_EQ(cursor.blockNum(), blockNum);
        EXPECT_EQ(cursor.blockEnd(), blockEnd);
        EXPECT_GT(cursor.text().data(), lastText);
        EXPECT_LE(cursor.text().data() + cursor.text().size(), blockEnd);
        lastText = cursor.text().data();
    }
}

TEST_F(VerseCursorBlock, EachReadHasItsNumber)
{
    CBibleText verses = text(test_support::smallModule());
    CVerseCursor cursor(verses, 0, 4, 1); // one record per block
    unsigned int lastBlockNum = cursor.blockNum();
    while (cursor.next()) {
        EXPECT_NE(cursor.blockNum(), lastBlockNum);
        EXPECT_EQ(cursor.blockEnd(), cursor.text().data() + cursor.text().size());
        lastBlockNum = cursor.blockNum();
    }
}

TEST_F(VerseCursorBlock, CursorThatHasFailedFailsAgain)
{
    CBibleText verses = text(test_support::smallModule());
    const std::string outOfRange = "CFileVector::operator [](): recordIndex out of range";
    CVerseCursor beyond(verses, 4, 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(messageOf<std::out_of_range>([&] { beyond.next(); }), outOfRange);
    CVerseCursor acrossTheEnd(verses, 3, 2);
    EXPECT_TRUE(acrossTheEnd.next());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(messageOf<std::out_of_range>([&] { acrossTheEnd.next(); }), outOfRange);
}

} // namespace
