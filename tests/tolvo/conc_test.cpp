#include "tolvo_bible/conc.h"

#include "bad_file.h"
#include "read_watch.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <initializer_list>
#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using namespace std::string_literals;
using test_support::messageOf;
using test_support::TempFolder;

using Verses = std::vector<unsigned int>;

constexpr const char* badWord = "CConc::getVersesFor(): wordIndex out of range";
constexpr const char* entryTooLong = "CFileVector::operator [](): recordIndex out of range";

std::string shorts(std::initializer_list<unsigned int> numbers)
{
    std::string bytes;
    for (const unsigned int number : numbers)
        bytes += {static_cast<char>(number), static_cast<char>(number >> 8)};
    return bytes;
}

std::string longs(std::initializer_list<unsigned int> numbers)
{
    std::string bytes;
    for (const unsigned int number : numbers)
        bytes += shorts({number & 0xFFFFu, number >> 16});
    return bytes;
}

/// A concordance with the given bytes, and queries for single words.
class Concordance
{
public:
    Concordance(const std::string& conc, const std::string& concPoint)
        : m_concPath(m_folder.write("Conc.bin", conc)),
          m_conc(m_concPath.c_str(), m_folder.write("ConcP.bin", concPoint).c_str())
    {}

    Verses versesOf(unsigned int word)
    {
        verses = {77}; // must be removed
        m_conc.getVersesFor(word, verses);
        return verses;
    }
    std::string rangeError(unsigned int word)
    {
        return messageOf<std::out_of_range>([&] { m_conc.getVersesFor(word, verses); });
    }
    void shrinkConcTo(std::size_t byteCount) { std::filesystem::resize_file(m_concPath, byteCount); }

    Verses verses;

private:
    TempFolder m_folder;
    std::string m_concPath;
    CConc m_conc;
};

TEST(Conc, GivesTheVersesOfAWordCountedFromZero)
{
    Concordance conc(shorts({2, 1, 3, 1, 65535}), longs({0, 3}));
    EXPECT_EQ(conc.versesOf(0), (Verses{0, 2}));
    EXPECT_EQ(conc.versesOf(1), Verses{65534});
}

TEST(Conc, AnEntryOfNoneIsEmpty)
{
    Concordance conc(shorts({0, 5}), longs({0}));
    EXPECT_EQ(conc.versesOf(0), Verses{});
}

TEST(Conc, AStoredZeroIsTheLargestNumber)
{
    Concordance conc(shorts({1, 0}), longs({0}));
    EXPECT_EQ(conc.versesOf(0), Verses{4294967295u});
}

TEST(Conc, TheLastWordIsReadAndTheNextThrows)
{
    Concordance conc(shorts({1, 1, 1, 2}), longs({0, 2}));
    EXPECT_EQ(conc.versesOf(1), Verses{1});
    EXPECT_EQ(conc.rangeError(2), badWord);
    EXPECT_EQ(conc.rangeError(4294967295u), badWord);
}

TEST(Conc, AWordOutOfRangeLeavesTheListAlone)
{
    Concordance conc(shorts({1, 1}), longs({0}));
    conc.verses = {7, 8};
    EXPECT_EQ(conc.rangeError(1), badWord);
    EXPECT_EQ(conc.verses, (Verses{7, 8}));
}

TEST(Conc, TwoWordsMayShareAnEntry)
{
    Concordance conc(shorts({2, 4, 6}), longs({0, 0}));
    EXPECT_EQ(conc.versesOf(0), (Verses{3, 5}));
    EXPECT_EQ(conc.versesOf(1), (Verses{3, 5}));
}

TEST(Conc, EntriesMayStandInAnyOrderWithGaps)
{
    Concordance conc(shorts({9, 9, 1, 5, 9, 1, 6}), longs({5, 2}));
    EXPECT_EQ(conc.versesOf(0), Verses{5});
    EXPECT_EQ(conc.versesOf(1), Verses{4});
}

TEST(Conc, VersesAreNeitherSortedNorDeduplicated)
{
    Concordance conc(shorts({4, 9, 3, 9, 1}), longs({0}));
    EXPECT_EQ(conc.versesOf(0), (Verses{8, 2, 8, 0}));
}

TEST(Conc, AnEntryPastTheEndThrowsAndKeepsTheVersesBefore)
{
    Concordance conc(shorts({3, 5, 6}), longs({0, 3}));
    EXPECT_EQ(conc.rangeError(0), entryTooLong);
    EXPECT_EQ(conc.verses, (Verses{4, 5}));
}

TEST(Conc, AnEntryThatBeginsPastTheEndThrowsAndLeavesAnEmptyList)
{
    Concordance conc(shorts({1, 5}), longs({2, 4294967295u}));
    conc.verses = {7};
    EXPECT_EQ(conc.rangeError(0), entryTooLong);
    EXPECT_EQ(conc.verses, Verses{});
    EXPECT_EQ(conc.rangeError(1), entryTooLong);
}

TEST(Conc, AfterAnOutOfRangeItGoesOn)
{
    Concordance conc(shorts({1, 5}), longs({0, 9}));
    EXPECT_EQ(conc.rangeError(1), entryTooLong);
    EXPECT_EQ(conc.versesOf(0), Verses{4});
}

// Positions in Conc.bin are converted to 32-bit byte offsets, which wrap in the middle of the range of the
// index.
TEST(Conc, ThePositionOfAnEntryWraps)
{
    Concordance conc(shorts({1, 5}), longs({0x80000000u}));
    EXPECT_EQ(conc.versesOf(0), Verses{4});
}

TEST(Conc, APartOfARecordInTheIndexIsNoWord)
{
    Concordance conc(shorts({1, 5}), longs({0}) + "\x01\x00\x00"s);
    EXPECT_EQ(conc.versesOf(0), Verses{4});
    EXPECT_EQ(conc.rangeError(1), badWord);
}

// An entry is read in pieces; the bytes after it are those of others.
TEST(Conc, EntriesOfEverySizeAreRead)
{
    for (const unsigned int count : {0u, 1u, 510u, 511u, 512u, 513u, 4096u, 16384u, 16895u, 16896u, 40000u}) {
        std::string entry = shorts({count});
        Verses expected;
        for (unsigned int i = 0; i < count; ++i) {
            entry += shorts({3 * i % 65535 + 1});
            expected.push_back(3 * i % 65535);
        }
        for (const std::string& following : {""s, "\x07"s, std::string(5000, '\x07')}) {
            Concordance conc(entry + following, longs({0}));
            EXPECT_EQ(conc.versesOf(0), expected)
                << count << " verses, then " << following.size() << " bytes";
        }
    }
}

TEST(Conc, AFullEntryHas65535Verses)
{
    std::string entry = shorts({65535});
    Verses expected;
    for (unsigned int i = 0; i < 65535; ++i) {
        entry += shorts({i + 1});
        expected.push_back(i);
    }
    Concordance conc(entry, longs({0}));
    EXPECT_EQ(conc.versesOf(0), expected);
}

/// The reads of one lookup: the byte offset and the size of each.
std::vector<std::pair<std::uint64_t, std::size_t>> readsFor(Concordance& conc, unsigned int word)
{
    test_support::ReadWatch watch;
    conc.versesOf(word);
    std::vector<std::pair<std::uint64_t, std::size_t>> reads;
    for (const auto& read : watch.reads())
        reads.emplace_back(read.byteOffset, read.wanted);
    return reads;
}

TEST(Conc, ALookupReadsNothingButItsEntry)
{
    using Reads = std::vector<std::pair<std::uint64_t, std::size_t>>;
    Concordance inOrder(shorts({9, 9, 3, 1, 2, 3, 1, 9}), longs({0, 2, 6}));
    EXPECT_EQ(readsFor(inOrder, 1), (Reads{{4, 8}, {4, 8}})) << "its place and the next one's, the entry";
    EXPECT_EQ(readsFor(inOrder, 2), (Reads{{8, 4}, {12, 4}})) << "the last word";
    Concordance backwards(shorts({2, 8, 9, 1, 7}), longs({3, 0}));
    EXPECT_EQ(readsFor(backwards, 1), (Reads{{4, 4}, {0, 10}})) << "to the end of the file";
}

TEST(ConcFile, ConcIsOpenedBeforeItsIndex)
{
    const TempFolder folder;
    const std::string missing = folder.file("Conc.bin");
    const std::string missingToo = folder.file("ConcP.bin");
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CConc(missing.c_str(), missingToo.c_str()); }),
              "CFileVector::CFileVector(): cannot open file " + missing);
}

TEST(ConcFile, EitherThatCannotBeOpenedIsNamed)
{
    const TempFolder folder;
    const std::string sound = folder.write("sound", longs({0}));
    for (const auto& bad : test_support::unopenableFiles(folder)) {
        const std::string text = "CFileVector::CFileVector(): cannot open file " + bad.path;
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CConc(bad.path.c_str(), sound.c_str()); }), text)
            << bad.defect;
        EXPECT_EQ(messageOf<std::ios_base::failure>([&] { CConc(sound.c_str(), bad.path.c_str()); }), text)
            << bad.defect;
    }
}

TEST(ConcFile, BothMayBeEmpty)
{
    Concordance conc("", "");
    EXPECT_EQ(conc.rangeError(0), badWord);
}

// A record that cannot be read is outside the contract: the index would return wrong verses after it.
TEST(ConcDeathTest, AnEntryThatEndsInsideARecordEndsTheProgram)
{
    Concordance conc(shorts({2, 5}) + "\x06", longs({0}));
    EXPECT_DEATH(
        conc.versesOf(0),
        testing::StartsWith("CConc::getVersesFor() let out an exception that its contract does not name: "
                            "CFileVector::operator [](): IO error\n"));
}

TEST(ConcDeathTest, AFileThatIsTruncatedWhileOpenEndsTheProgram)
{
    Concordance conc(shorts({3, 5, 6, 7}), longs({0}));
    conc.shrinkConcTo(4);
    EXPECT_DEATH(conc.versesOf(0), "CFileVector::operator \\[\\]\\(\\): IO error");
}

TEST(ConcFile, SpoiledAnywhereTheIndexLeadsToAnAnswer)
{
    const TempFolder folder;
    const std::string conc = folder.write("Conc.bin", shorts({2, 1, 3, 1, 2, 2, 1, 3}));
    test_support::walkSpoiled(longs({0, 3, 5}), {},
                              [&](const std::string& path) { return test_support::walkConc(conc, path); });
}

TEST(ConcFile, SpoiledAnywhereEntriesGiveAnAnswer)
{
    const TempFolder folder;
    const std::string point = folder.write("ConcP.bin", longs({0, 3, 5}));
    test_support::walkSpoiled(shorts({2, 1, 3, 1, 2, 2, 1, 3}), {}, [&](const std::string& path) {
        if (std::filesystem::file_size(path) % 2 != 0)
            return std::string(); // a partial record, which ends the program
        return test_support::walkConc(path, point);
    });
}

} // namespace
