// Modules that load but cannot be read to their end, or from their beginning: the validation refuses them.

#include "module_files.h"
#include "nothing_left.h"
#include "refusals.h"
#include "spoiled.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Kedrin::Tolvo;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::smallModule;
using test_support::TempFolder;

const std::string nothing = "<nothing was thrown>";

class BibleProof : public testing::Test
{
protected:
    void put(const std::string& fileName, const std::string& bytes) { files.bytes[fileName] = bytes; }

    /// The exception of the catalogue's validation, after checking that the files load.
    std::string refusal()
    {
        files.write(module);
        EXPECT_NO_THROW(CBible{module});
        return messageOf<std::runtime_error>([&] { CBibleModules(folder.path().string()).ValidateBible(0); });
    }

    std::string wrapped(const std::string& inner) const { return test_support::loadingError(module, inner); }
    std::string shortTitles() const
    {
        return wrapped("CTitles::CTitles(): error reading file " + module + "/BibleTitles.txt");
    }
    std::string badStructure() const
    {
        return wrapped("CBibleSructure::CBibleSructure(): error reading file " + module +
                       "/BibleStructure.csv");
    }

    TempFolder folder;
    std::string module = folder.file("module");
    ModuleFiles files = smallModule();
};

TEST_F(BibleProof, TitlesCutShortAreRefused)
{
    const std::string whole = files.bytes["BibleTitles.txt"];
    ASSERT_TRUE(whole.ends_with("\r\n"));
    test_support::forEveryCut(whole, [&](const std::string& bytes) {
        put("BibleTitles.txt", bytes);
        const bool lineIsThere = bytes.size() + 4 >= whole.size(); // a letter of the last line is enough
        EXPECT_EQ(refusal(), lineIsThere ? nothing : shortTitles()) << testing::PrintToString(bytes);
    });
}

TEST_F(BibleProof, TitlesWithoutANumberAreRefused)
{
    const std::string lines = "\nA\nB\nA\nB\nA\nB\n";
    for (const char* numbers : {"", "x 0 1", "2", "2 0", "2 0 x", "2 x 1", "2 0 2147483648", "-2 0 1"}) {
        put("BibleTitles.txt", numbers + lines);
        EXPECT_EQ(refusal(), shortTitles()) << numbers;
    }
}

TEST_F(BibleProof, TitlesThatAreNotShortPass)
{
    const std::string numbers = "2 0 1";
    for (const char* lines : {"\nA\nB\nA\nB\nA\nB", "\nA\nB\nA\nB\nA\nB\n", "\r\n\r\n\r\n\r\n\r\n\r\n\r\n",
                              "\n\n\n\n\n\nB", " left over\nA\nB\nA\nB\nA\nB\nfurther\nlines\n"}) {
        put("BibleTitles.txt", numbers + lines);
        EXPECT_EQ(refusal(), nothing) << lines;
    }
}

TEST_F(BibleProof, WholeFurtherBookOfTheStructureIsRefused)
{
    for (const char* further : {"1 1", "3 1 1 1\n7", "0", "1 1 2 1 1"}) {
        put("BibleStructure.csv", std::string("2 2 1\r\n1 1\r\n") + further);
        EXPECT_EQ(refusal(), badStructure()) << further;
    }
}

TEST_F(BibleProof, WhatIsNoWholeFurtherBookPasses)
{
    for (const char* further : {"", " \r\n", "1", "3 1 1", "x", "1 x", "# two books", "4294967295 1"}) {
        put("BibleStructure.csv", std::string("2 2 1\r\n1 1\r\n") + further);
        EXPECT_EQ(refusal(), nothing) << further;
    }
}

TEST_F(BibleProof, FewerTitlesThanTheStructureHasBooksAreRefused)
{
    put("BibleTitles.txt", "1 0\nA\nA\nA\n");
    EXPECT_EQ(refusal(), badStructure());
    put("BibleTitles.txt", "0\n");
    EXPECT_EQ(refusal(), badStructure());
}

TEST_F(BibleProof, MoreVersesThanPointersAreRefused)
{
    for (const char* structure : {"2 2 2\r\n1 1\r\n", "2 2 1\r\n1 2\r\n", "2 2 1\r\n1 4000000000\r\n"}) {
        put("BibleStructure.csv", structure);
        EXPECT_EQ(refusal(), badStructure()) << structure;
    }
    files = smallModule();
    files.bytes["CompactPoint.bin"].resize(15); // three and a partial record
    EXPECT_EQ(refusal(), badStructure());
}

TEST_F(BibleProof, FewerVersesThanPointersPass)
{
    put("CompactPoint.bin", files.bytes["CompactPoint.bin"] + std::string(10, '\xFF'));
    EXPECT_EQ(refusal(), nothing);
}

TEST_F(BibleProof, UnreadableFirstChapterIsRefused)
{
    put("CompactText.bin", "");
    EXPECT_EQ(refusal(), wrapped("CBibleText::operator [](): I/O error"));
    put("CompactText.bin",
        smallModule().bytes["CompactText.bin"].substr(0, 15)); // its second verse is missing a byte
    EXPECT_EQ(refusal(), wrapped("CBibleText::operator [](): I/O error"));
    put("CompactText.bin",
        smallModule().bytes["CompactText.bin"].substr(0, 16)); // bytes are missing only in later chapters
    EXPECT_EQ(refusal(), nothing);
}

TEST_F(BibleProof, NoFirstChapterIsRefused)
{
    put("BibleStructure.csv", "0\r\n1 1\r\n");
    EXPECT_EQ(refusal(), wrapped("CBibleSructure::ValidateChapterID(): chapter out of range"));
    put("BibleTitles.txt", "0\n");
    put("BibleStructure.csv", "");
    EXPECT_EQ(refusal(), wrapped("CBibleSructure::ValidateBookID(): bookID out of range"));
}

TEST_F(BibleProof, FirstChapterWithoutVersesPasses)
{
    put("BibleStructure.csv", "2 0 1\r\n1 1\r\n");
    EXPECT_EQ(refusal(), nothing);
}

TEST_F(BibleProof, RefusalsOfTheLoadingComeFirst)
{
    put("BibleTitles.txt", "2");
    put("BibleStructure.csv", "2 2 1\r\n");
    files.write(module);
    const auto failureOf = [&](auto&& operation) { return messageOf<std::runtime_error>(operation); };
    const CBibleModules modules(folder.path().string());
    EXPECT_EQ(failureOf([&] { modules.ValidateBible(0); }), badStructure());
    EXPECT_EQ(failureOf([&] { CBible{module}; }), badStructure());
    put("BibleStructure.csv", "2 2 1\r\n1 1\r\n1 1\r\n");
    files.write(module);
    EXPECT_EQ(failureOf([&] { modules.ValidateBible(0); }), shortTitles());
    std::filesystem::remove(module + "/ConcP.bin");
    EXPECT_EQ(failureOf([&] { modules.ValidateBible(0); }), failureOf([&] { CBible{module}; }));
}

TEST_F(BibleProof, RefusalIsARuntimeErrorOfItsOwnAndNoIoFailure)
{
    put("BibleTitles.txt", "2");
    files.write(module);
    try {
        CBibleModules(folder.path().string()).ValidateBible(0);
        FAIL() << "passed";
    } catch (const std::exception& ex) {
        EXPECT_TRUE(typeid(ex) == typeid(std::runtime_error));
    }
}

TEST_F(BibleProof, HundredRefusalsLeaveNothing)
{
    const std::pair<const char*, std::string> damages[] = {
        {"BibleTitles.txt", "2 0"}, {"BibleStructure.csv", "2 2 1 1 1 1 1"}, {"CompactText.bin", "\x01"}};
    for (const auto& [fileName, bytes] : damages) {
        files = smallModule();
        put(fileName, bytes);
        EXPECT_NE(refusal(), nothing);
        const CBibleModules modules(folder.path().string());
        const auto prove = [&] { messageOf<std::runtime_error>([&] { modules.ValidateBible(0); }); };
        SCOPED_TRACE(fileName);
        test_support::expectNothingLeftBy(prove);
    }
}

} // namespace
