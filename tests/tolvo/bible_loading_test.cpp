// Which files CBible opens, in which order, its messages on failure, and what it leaks.

#include "forked.h"
#include "module_files.h"
#include "nothing_left.h"
#include "refusals.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <unistd.h>

namespace {

using namespace Kedrin::Tolvo;
using test_support::expectNothingLeftBy;
using test_support::loadingError;
using test_support::ModuleFiles;
using test_support::openDescriptors;
using test_support::refusalOfUnopened;
using test_support::smallModule;
using test_support::TempFolder;

/// The text of the std::runtime_error that `operation` throws; "" if it throws nothing.
std::string failureOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const std::ios_base::failure&) {
        return "not wrapped";
    } catch (const std::runtime_error& ex) {
        return ex.what();
    }
    return std::string();
}

std::string loadFailure(const std::string& folder)
{
    return failureOf([&] { const CBible bible(folder); });
}

class BibleLoading : public testing::Test
{
protected:
    void write(const std::string& absentFile = {})
    {
        ModuleFiles files = smallModule();
        files.bytes.erase(absentFile);
        files.write(folder.path() / "module");
    }

    TempFolder folder;
    std::string module = folder.file("module");
};

/// In the order of opening.
const std::vector<std::string> neededFiles = {"BibleTitles.txt",  "BibleStructure.csv", "_Diff_.txt",
                                              "CompactPoint.bin", "CompactText.bin",    "WordList.txt",
                                              "Conc.bin",         "ConcP.bin"};

TEST_F(BibleLoading, FolderWithAndWithoutSlashLoadsTheSameFiles)
{
    write();
    const CBible plain(module);
    const CBible slashed(module + "/");
    for (const CBible* bible : {&plain, &slashed}) {
        EXPECT_EQ((*bible)[CRef(0, 0, 0, false)], test_support::cp1251("Бог рече"));
        EXPECT_EQ(bible->info()->fullTitle(), test_support::cp1251("Малък превод"));
        EXPECT_EQ(bible->wordsCount(), 3u);
    }
}

TEST_F(BibleLoading, MessageQuotesTheFolderExactlyAsGiven)
{
    write("_Diff_.txt");
    const std::string inner = "CDiff::CDiff(): error opening file " + module + "/_Diff_.txt";
    EXPECT_EQ(loadFailure(module), loadingError(module, inner));
    EXPECT_EQ(loadFailure(module + "/"), loadingError(module + "/", inner));
}

TEST_F(BibleLoading, EachMissingFileIsNamedByItsReader)
{
    for (const std::string& missing : neededFiles) {
        write();
        std::filesystem::remove(folder.path() / "module" / missing);
        EXPECT_EQ(loadFailure(module), refusalOfUnopened(missing, module));
    }
}

TEST_F(BibleLoading, FilesAreOpenedInTheirFixedOrder)
{
    // In an empty folder the first file is missing; after each file is added, the next one is.
    std::filesystem::create_directories(module);
    ModuleFiles present;
    for (const std::string& next : neededFiles) {
        EXPECT_EQ(loadFailure(module), refusalOfUnopened(next, module));
        present.bytes[next] = smallModule().bytes[next];
        present.write(module);
    }
    EXPECT_EQ(loadFailure(module), "");
}

TEST_F(BibleLoading, NoFolderIsAMissingTitlesFile)
{
    EXPECT_EQ(loadFailure(module),
              loadingError(module, "CTitles::CTitles(): error opening file " + module + "/BibleTitles.txt"));
}

TEST_F(BibleLoading, MalformedStructureIsNamed)
{
    ModuleFiles files = smallModule();
    files.bytes["BibleStructure.csv"] = "2 2 1\r\n1\r\n";
    files.write(module);
    EXPECT_EQ(loadFailure(module),
              loadingError(module, "CBibleSructure::CBibleSructure(): error reading file " + module +
                                       "/BibleStructure.csv"));
}

TEST_F(BibleLoading, ShortTitlesLoad)
{
    ModuleFiles files = smallModule();
    files.bytes["BibleTitles.txt"] = "2 0";
    files.write(module);
    EXPECT_EQ(CBible(module).booksCount(), 2u);
    files.bytes["BibleTitles.txt"] = "";
    files.write(module);
    EXPECT_EQ(CBible(module).booksCount(), 0u);
}

TEST_F(BibleLoading, StructureIsReadForAsManyBooksAsThereAreTitles)
{
    ModuleFiles files = smallModule();
    files.bytes["BibleStructure.csv"] = "2 2 1\r\n1 1\r\n3 9 9 9\r\n"; // a third book without a title
    files.write(module);
    EXPECT_EQ(CBible(module).booksCount(), 2u);
}

TEST_F(BibleLoading, WordPointFileIsNotNeeded)
{
    write("WordPoint.bin");
    EXPECT_EQ(CBible(module).wordsCount(), 3u);
}

TEST_F(BibleLoading, WithoutInformationTheTitlesAreTheFoldersName)
{
    write("_Info_.txt");
    for (const std::string& given : {module, module + "/"}) {
        const CBible bible(given);
        EXPECT_EQ(bible.info()->fullTitle(), "module");
        EXPECT_EQ(bible.info()->shortTitle(), "module");
        EXPECT_EQ(bible.info()->abbreveatedTitle(), "module");
        EXPECT_EQ(bible.info()->copyright(), "");
    }
}

TEST_F(BibleLoading, CyrillicFolderIsFoundAndItsNameIsAWindows1251Title)
{
    ModuleFiles files = smallModule();
    files.bytes.erase("_Info_.txt");
    const std::string cyrillic = folder.file("Ревизирано издание");
    files.write(cyrillic);
    EXPECT_EQ(CBible(cyrillic).info()->fullTitle(), test_support::cp1251("Ревизирано издание"));
}

TEST_F(BibleLoading, MessageHoldsTheFoldersNativeBytes)
{
    const std::string cyrillic = folder.file("няма");
    EXPECT_EQ(loadFailure(cyrillic), loadingError(cyrillic, "CTitles::CTitles(): error opening file " +
                                                                cyrillic + "/BibleTitles.txt"));
}

TEST_F(BibleLoading, FailureIsARuntimeErrorOfItsOwnAndNoIoFailure)
{
    write("ConcP.bin");
    try {
        const CBible bible(module);
        FAIL() << "loaded";
    } catch (const std::exception& ex) {
        EXPECT_TRUE(typeid(ex) == typeid(std::runtime_error));
    }
}

// A failed constructor releases nothing: the partly built translation is leaked, including its open files.
// The window therefore validates a module before loading it.
TEST_F(BibleLoading, FailedLoadingAbandonsTheFilesItHasOpened)
{
    struct Case
    {
        std::string missing;
        int leftOpen;
    };
    for (const Case& c : {Case{"_Diff_.txt", 0}, Case{"CompactText.bin", 0}, Case{"WordList.txt", 2},
                          Case{"Conc.bin", 2}, Case{"ConcP.bin", 2}}) {
        write();
        std::filesystem::remove(folder.path() / "module" / c.missing);
        const auto leftOpenByLoading = [&] {
            const int before = openDescriptors();
            loadFailure(module);
            return openDescriptors() - before;
        };
        EXPECT_EQ(test_support::runForked(leftOpenByLoading).exitCode, c.leftOpen) << c.missing;
    }
}

TEST_F(BibleLoading, LoadedTranslationHoldsFourFilesUntilItGoes)
{
    write();
    const int before = openDescriptors();
    auto bible = std::make_unique<CBible>(module);
    EXPECT_EQ(openDescriptors() - before, 4);
    bible.reset();
    EXPECT_EQ(openDescriptors(), before);
}

// The information record is never deleted.
TEST_F(BibleLoading, InformationOutlivesTheTranslation)
{
    write();
    auto bible = std::make_unique<CBible>(module);
    const CBibleInfo* info = bible->info();
    bible.reset();
    EXPECT_EQ(info->fullTitle(), test_support::cp1251("Малък превод"));
    EXPECT_EQ(info->copyright(), test_support::cp1251("Свободен текст\n"));
}

TEST_F(BibleLoading, ProofSaysForEveryMissingFileWhatLoadingSays)
{
    for (const auto& [fileName, content] : smallModule().bytes) {
        write();
        std::filesystem::remove(folder.path() / "module" / fileName);
        for (const std::string& given : {module, module + "/"})
            EXPECT_EQ(failureOf([&] { CBible::Validate(given); }), loadFailure(given)) << fileName;
    }
}

TEST_F(BibleLoading, HundredSucceedingProofsLeaveNothing)
{
    write();
    expectNothingLeftBy([&] { CBible::Validate(module); });
}

TEST_F(BibleLoading, HundredFailingProofsLeaveNothing)
{
    for (const std::string& missing : neededFiles) {
        SCOPED_TRACE(missing);
        write();
        std::filesystem::remove(folder.path() / "module" / missing);
        expectNothingLeftBy([&] { EXPECT_NE(failureOf([&] { CBible::Validate(module); }), ""); });
    }
}

} // namespace
