// What a scan needs of a run of verses beyond the verses: the piece they were read in.

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

class VerseRunPiece : public testing::Test
{
protected:
    CBibleText text(const ModuleFiles& files) const
    {
        files.write(folder.path());
        return CBibleText(folder.file("CompactText.bin").c_str(), folder.file("CompactPoint.bin").c_str());
    }

    TempFolder folder;
};

TEST_F(VerseRunPiece, VersesReadTogetherShareOnePiece)
{
    CBibleText verses = text(test_support::smallModule());
    CVerseRun run(verses, 0, 4);
    ASSERT_TRUE(run.next());
    const unsigned int pieceNum = run.pieceNum();
    const char* const pieceEnd = run.pieceEnd();
    const char* lastText = run.text().data();
    EXPECT_EQ(pieceEnd - run.text().data(), 26); // all 28 bytes of the file but the first two
    while (run.next()) {
        EXPECT_EQ(run.pieceNum(), pieceNum);
        EXPECT_EQ(run.pieceEnd(), pieceEnd);
        EXPECT_GT(run.text().data(), lastText);
        EXPECT_LE(run.text().data() + run.text().size(), pieceEnd);
        lastText = run.text().data();
    }
}

TEST_F(VerseRunPiece, EachReadHasItsNumber)
{
    CBibleText verses = text(test_support::smallModule());
    CVerseRun run(verses, 0, 4, 1); // a piece holds one record
    unsigned int lastPieceNum = run.pieceNum();
    while (run.next()) {
        EXPECT_NE(run.pieceNum(), lastPieceNum);
        EXPECT_EQ(run.pieceEnd(), run.text().data() + run.text().size());
        lastPieceNum = run.pieceNum();
    }
}

TEST_F(VerseRunPiece, RunThatHasFailedFailsAgain)
{
    CBibleText verses = text(test_support::smallModule());
    const std::string outOfRange = "CFileVector::operator [](): recordIndex out of range";
    CVerseRun beyond(verses, 4, 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(messageOf<std::out_of_range>([&] { beyond.next(); }), outOfRange);
    CVerseRun acrossTheEnd(verses, 3, 2);
    EXPECT_TRUE(acrossTheEnd.next());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(messageOf<std::out_of_range>([&] { acrossTheEnd.next(); }), outOfRange);
}

} // namespace
