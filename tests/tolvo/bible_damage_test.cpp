// Reading and searching, in the way the window does, in modules with damaged files: the exceptions, and later
// reads.

#include "bible_search_fixture.h"
#include "forked.h"
#include "thrown.h"

#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace Kedrin::Tolvo;
using test_support::cp1251;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::smallModule;

const std::string textError = "CBibleText::operator [](): I/O error";
const std::string vectorError = "CFileVector::operator [](): IO error";
const std::string rangeError = "CFileVector::operator [](): recordIndex out of range";

class BibleDamage : public BibleSearchFixture
{
protected:
    /// smallModule() with one file changed; its verses are 10, 10, 4 and 6 bytes in the file, its words three.
    void loadWith(const std::string& fileName, const std::string& bytes)
    {
        ModuleFiles files = smallModule();
        files.bytes[fileName] = bytes;
        load(files);
    }
    void loadCut(const std::string& fileName, std::size_t byteCount)
    {
        loadWith(fileName, smallModule().bytes[fileName].substr(0, byteCount));
    }

    Places verses(const std::string& text, bool wholeWord, bool caseSensitive)
    {
        bible->searchVerses(cp1251(text), wholeWord, caseSensitive, result);
        return placesOf(result);
    }
    Places versesOfWord(const std::string& text) { return verses(text, true, false); }

    std::string chapterFailure(unsigned int book, unsigned int chapter)
    {
        return messageOf<std::ios_base::failure>([&] { bible->chapterVerses(book, chapter); });
    }
    std::string searchFailure(const std::string& text, bool wholeWord, bool caseSensitive = false)
    {
        return messageOf<std::ios_base::failure>([&] { verses(text, wholeWord, caseSensitive); });
    }
};

using BibleDamageDeathTest = BibleDamage;

TEST_F(BibleDamage, ChapterOfACutTextThrowsTheFailure)
{
    loadCut("CompactText.bin", 12);
    EXPECT_EQ(chapterFailure(0, 0), textError);
}

TEST_F(BibleDamage, ChapterOfACutPointerFileThrowsTheFailure)
{
    loadCut("CompactPoint.bin", 6);
    EXPECT_EQ(chapterFailure(0, 0), vectorError);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { bible->chapterVerses(1, 0); }), rangeError);
}

TEST_F(BibleDamage, ChapterOfAPointerBeyondTheTextThrowsTheFailure)
{
    loadWith("CompactPoint.bin", std::string(8, '\xFF') + smallModule().bytes["CompactPoint.bin"].substr(8));
    EXPECT_EQ(chapterFailure(0, 0), textError);
}

TEST_F(BibleDamage, FailureOfAChapterStaysForTheChaptersAfterIt)
{
    loadCut("CompactText.bin", 12);
    EXPECT_EQ(chapterFailure(0, 0), textError);
    EXPECT_EQ(chapterFailure(0, 1), textError);
    EXPECT_EQ(chapterFailure(1, 0), textError);
}

TEST_F(BibleDamage, VersesAreSearchedAsSearchDoes)
{
    load(smallModule());
    for (const char* text : {"", "бог", "Бог", "ог", "рече", "няма"}) {
        EXPECT_EQ(verses(text, false, false), search(text, false, false)) << text;
        EXPECT_EQ(verses(text, false, true), search(text, false, true)) << text;
        EXPECT_EQ(verses(text, true, false), search(text, true, false)) << text;
    }
}

TEST_F(BibleDamage, WholeWordsByLetterCaseAreRefusedBeforeTheResultIsTouched)
{
    load(smallModule());
    EXPECT_EQ(messageOf<std::logic_error>([&] { verses("бог", true, true); }),
              "Whole words search may be only case insensitive");
    EXPECT_EQ(placesOf(result), Places{"9.9.9"});
}

TEST_F(BibleDamage, SearchOfACutTextThrowsTheFailureAndKeepsTheHitsBefore)
{
    loadCut("CompactText.bin", 12);
    for (const bool caseSensitive : {false, true}) {
        EXPECT_EQ(searchFailure("Бог", false, caseSensitive), textError);
        EXPECT_EQ(placesOf(result), Places{"0.0.0"});
    }
    EXPECT_EQ(versesOfWord("бог"), (Places{"0.0.0", "0.1.0"})); // without reading the text
}

TEST_F(BibleDamage, SearchOfACutPointerFileThrowsTheFailure)
{
    loadCut("CompactPoint.bin", 6);
    EXPECT_EQ(searchFailure("Бог", false), vectorError);
    EXPECT_EQ(placesOf(result), Places{"0.0.0"});
    loadCut("CompactPoint.bin", 4);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { verses("Бог", false, false); }), rangeError);
}

TEST_F(BibleDamage, SearchOfACutConcordanceThrowsTheFailure)
{
    loadCut("Conc.bin", 15);
    EXPECT_EQ(searchFailure("рече", true), vectorError);
    EXPECT_EQ(versesOfWord("бог"), (Places{"0.0.0", "0.1.0"})); // its entry is complete
}

TEST_F(BibleDamage, SearchOfSpoiledConcordanceFilesThrowsAsTheSearchDoes)
{
    loadWith("ConcP.bin", std::string(12, '\xFF'));
    EXPECT_EQ(messageOf<std::out_of_range>([&] { versesOfWord("бог"); }), rangeError);
    loadCut("ConcP.bin", 5);
    EXPECT_EQ(messageOf<std::out_of_range>([&] { versesOfWord("рече"); }),
              "CConc::getVersesFor(): wordIndex out of range");
    loadWith("Conc.bin", smallModule().bytes["Conc.bin"].replace(2, 2, "\xFF\xFF"));
    EXPECT_EQ(messageOf<std::out_of_range>([&] { versesOfWord("бог"); }),
              "CBibleSructure::ValidateNum(): verse number out of range");
}

TEST_F(BibleDamage, SearchOfAWordListOfOtherBytesFindsNoWord)
{
    loadCut("WordList.txt", 1);
    EXPECT_EQ(versesOfWord("рече"), Places{});
    loadWith("WordList.txt", std::string(300, '\xE0'));
    EXPECT_EQ(versesOfWord("бог"), Places{});
    EXPECT_EQ(verses("бог", false, false), (Places{"0.0.0", "0.1.0"}));
}

TEST_F(BibleDamage, ReadingGoesOnAsBeforeAfterAFailedSearch)
{
    loadCut("CompactText.bin", 12);
    EXPECT_EQ(searchFailure("а", false), textError);
    EXPECT_EQ((*bible)[CRef(0, 0, 0, false)], cp1251("Бог рече"));
    loadCut("Conc.bin", 15);
    EXPECT_EQ(searchFailure("рече", true), vectorError);
    EXPECT_EQ(word("бог"), (Places{"0.0.0", "0.1.0"}));
    EXPECT_EQ(bible->chapterVerses(0, 0).size(), 2u);
}

TEST_F(BibleDamage, SearchIsNotEndedByAFailureBeforeIt)
{
    loadCut("CompactText.bin", 12);
    EXPECT_EQ(chapterFailure(0, 0), textError);
    EXPECT_EQ(searchFailure("Бог", false), textError);
    EXPECT_EQ(placesOf(result), Places{"0.0.0"});
    EXPECT_EQ(chapterFailure(0, 0), textError); // the text is still in its failed state
}

// A package manager may replace the files.
TEST_F(BibleDamage, SearchReadsTheFilesThatTheTranslationHasOpen)
{
    load(smallModule());
    std::filesystem::remove_all(folder.path());
    const int before = test_support::openDescriptors();
    EXPECT_EQ(verses("бог", false, false), (Places{"0.0.0", "0.1.0"}));
    EXPECT_EQ(versesOfWord("бог"), (Places{"0.0.0", "0.1.0"}));
    EXPECT_EQ(test_support::openDescriptors(), before);
    EXPECT_EQ(bible->chapterVerses(0, 0).size(), 2u);
}

#if !defined(KEDRIN_SANITIZE) // its shadow memory exceeds any limit

/// Makes large allocations of this process fail.
void forbidMoreMemory()
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
    const rlimit bytes = {limit, limit};
    ::setrlimit(RLIMIT_AS, &bytes);
}

TEST_F(BibleDamageDeathTest, AnotherExceptionEndsTheProgram)
{
    ModuleFiles files =
        test_support::makeModule("Превод", {test_support::Book{0, "Битие", {{std::string(1000, 'x')}}}});
    files.bytes["BibleStructure.csv"] = "1 65535\r\n"; // all verses share one record
    files.bytes["CompactPoint.bin"].resize(4 * 65535);
    load(files);
    const std::string longText(64u << 20, 'x');
    EXPECT_DEATH(
        (forbidMoreMemory(), bible->searchVerses(longText, false, false, result)),
        "CBible::searchVerses\\(\\) let out an exception that its contract does not name: std::bad_alloc");
    EXPECT_DEATH(
        (forbidMoreMemory(), bible->chapterVerses(0, 0)),
        "CBible::chapterVerses\\(\\) let out an exception that its contract does not name: std::bad_alloc");
}

#endif

} // namespace
