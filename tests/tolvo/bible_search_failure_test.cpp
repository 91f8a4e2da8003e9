// Searches of modules with inconsistent or damaged files: the exceptions, the remaining hits, what ends the
// program.

#include "bible_search_fixture.h"
#include "thrown.h"

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::smallModule;

class BibleSearchFailure : public BibleSearchFixture
{
};

using BibleSearchFailureDeathTest = BibleSearchFailure;

const Places noPlaces;

TEST_F(BibleSearchFailure, VerseNumberBeyondTheModuleThrowsAndKeepsTheHitsBefore)
{
    ModuleFiles files = smallModule();
    files.bytes["Conc.bin"] = std::string("\x03\x00\x01\x00\x09\x00\x02\x00", 8);
    files.bytes["ConcP.bin"] = std::string(12, '\0');
    load(files);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { word("бог"); }),
              "CBibleSructure::ValidateNum(): verse number out of range");
    EXPECT_EQ(placesOf(result), Places{"0.0.0"});
}

TEST_F(BibleSearchFailure, VerseZeroInTheConcordanceIsBeyondTheModule)
{
    ModuleFiles files = smallModule();
    files.bytes["Conc.bin"] = std::string("\x01\x00\x00\x00", 4);
    files.bytes["ConcP.bin"] = std::string(12, '\0');
    load(files);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { word("бог"); }),
              "CBibleSructure::ValidateNum(): verse number out of range");
    EXPECT_EQ(placesOf(result), noPlaces);
}

TEST_F(BibleSearchFailure, WordThatTheConcordanceLacksThrows)
{
    ModuleFiles files = smallModule();
    files.bytes["ConcP.bin"].resize(8);
    load(files);
    EXPECT_EQ(word("бог").size(), 2u);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { word("рече"); }),
              "CConc::getVersesFor(): wordIndex out of range");
    EXPECT_EQ(placesOf(result), noPlaces);
}

TEST_F(BibleSearchFailure, EntryThatRunsPastTheConcordanceThrows)
{
    ModuleFiles files = smallModule();
    files.bytes["Conc.bin"].resize(14);
    load(files);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { word("рече"); }),
              "CFileVector::operator [](): recordIndex out of range");
    EXPECT_EQ(placesOf(result), noPlaces);
}

TEST_F(BibleSearchFailure, FewerTextsThanVersesThrowsAndKeepsTheHitsBefore)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactPoint.bin"].resize(12);
    load(files);
    for (const bool caseSensitive : {false, true}) {
        EXPECT_EQ(messageOf<std::out_of_range>([&] { search("ог", false, caseSensitive); }),
                  "CFileVector::operator [](): recordIndex out of range");
        EXPECT_EQ(placesOf(result), (Places{"0.0.0", "0.1.0"}));
    }
}

// A search may throw only std::logic_error.
TEST_F(BibleSearchFailureDeathTest, DamagedTextEndsTheProgram)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactText.bin"].resize(12);
    load(files);
    for (const bool caseSensitive : {false, true})
        EXPECT_DEATH(search("а", false, caseSensitive),
                     "CBible::search\\(\\) let out .*: CBibleText::operator \\[\\]\\(\\): I/O error");
}

TEST_F(BibleSearchFailureDeathTest, HalfARecordInTheConcordanceEndsTheProgram)
{
    ModuleFiles files = smallModule();
    files.bytes["Conc.bin"].resize(15);
    load(files);
    EXPECT_DEATH(word("рече"),
                 "CBible::search\\(\\) let out .*: CFileVector::operator \\[\\]\\(\\): IO error");
}

TEST_F(BibleSearchFailureDeathTest, DamagedTextDoesNotMatterToAWholeWord)
{
    ModuleFiles files = smallModule();
    files.bytes["CompactText.bin"].clear();
    load(files);
    EXPECT_EQ(word("бог"), (Places{"0.0.0", "0.1.0"}));
}

} // namespace
