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

TEST_F(VerseCursorBlock, VersesThatFollowEachOtherAreOneRun)
{
    CBibleText verses = text(test_support::smallModule());
    CVerseCursor cursor(verses, 0, 4);
    std::vector<std::string> texts;
    const char* lastEnd = nullptr;
    while (cursor.nextRun()) {
        const CVerseRun& run = cursor.run();
        EXPECT_EQ(run.firstVerseNum(), texts.size());
        for (std::size_t i = 0; i < run.size(); ++i) {
            EXPECT_EQ(run.textOf(i), run[i].data());
            EXPECT_EQ(run.endOf(i), run[i].data() + run[i].size());
            EXPECT_TRUE(i == 0 || run.textOf(i) == lastEnd + 2) << "the length is between them";
            lastEnd = run.endOf(i);
            texts.emplace_back(run[i]);
        }
    }
    ASSERT_EQ(texts.size(), 4u);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(texts[static_cast<std::size_t>(i)], verses[i]);
}

TEST_F(VerseCursorBlock, ARunGoesOnFromTheVerseThatIsNext)
{
    CBibleText verses = text(test_support::smallModule());
    CVerseCursor cursor(verses, 0, 4, 1); // one record a block, so each is a run
    ASSERT_TRUE(cursor.next());
    ASSERT_TRUE(cursor.nextRun());
    EXPECT_EQ(cursor.run().firstVerseNum(), 1u);
    EXPECT_EQ(cursor.run().size(), 1u);
    ASSERT_TRUE(cursor.next());
    EXPECT_EQ(cursor.verseNum(), 1u) << "the first of the run";
    ASSERT_TRUE(cursor.nextRun());
    ASSERT_TRUE(cursor.nextRun());
    EXPECT_EQ(cursor.run().firstVerseNum(), 3u);
    EXPECT_FALSE(cursor.nextRun());
    EXPECT_FALSE(cursor.next());
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
