// The catalogue of installed translations.

#include "module_files.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Kedrin::Tolvo;
using test_support::cp1251;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::smallModule;
using test_support::TempFolder;

class BibleModules : public testing::Test
{
protected:
    /// A module whose full title is the name of its folder, so that a test can see its index.
    void addUntitled(const std::string& folderName) const
    {
        ModuleFiles files = smallModule();
        files.bytes.erase("_Info_.txt");
        files.write(folder.path() / folderName);
    }

    std::vector<std::string> titles() const
    {
        const CBibleModules modules(folder.path().string());
        std::vector<std::string> titles;
        for (unsigned int i = 0; i < modules.count(); ++i)
            titles.push_back(modules.info(i)->fullTitle());
        return titles;
    }

    TempFolder folder;
};

using BibleModulesDeathTest = BibleModules;
using Titles = std::vector<std::string>;

const std::string infoOutOfRange = "CBibleModules::info(): index out of range";
const std::string loadOutOfRange = "CBibleModules::loadBible(): index out of range";

TEST_F(BibleModules, FoldersAreSortedByNameIgnoringCase)
{
    addUntitled("bgRev");
    addUntitled("Bg1940");
    addUntitled("abc");
    EXPECT_EQ(titles(), (Titles{"abc", "Bg1940", "bgRev"}));
}

TEST_F(BibleModules, HiddenFoldersAndPlainFilesAreNoModules)
{
    addUntitled("one");
    addUntitled(".svn");
    folder.write("file", "text");
    folder.write("BibleStructure.txt", "");
    EXPECT_EQ(titles(), Titles{"one"});
}

TEST_F(BibleModules, LinkToAFolderIsAModuleAndLinkToAFileIsNone)
{
    const TempFolder elsewhere;
    smallModule().write(elsewhere.path() / "target");
    std::filesystem::create_directory_symlink(elsewhere.path() / "target", folder.path() / "link");
    std::filesystem::create_symlink(elsewhere.path() / "target" / "Conc.bin", folder.path() / "fileLink");
    const CBibleModules modules(folder.path().string());
    ASSERT_EQ(modules.count(), 1u);
    EXPECT_EQ(modules.info(0)->fullTitle(), cp1251("Малък превод"));
    EXPECT_NO_THROW(modules.ValidateBible(0));
}

TEST_F(BibleModules, NothingInsideAFolderIsLookedAt)
{
    std::filesystem::create_directory(folder.path() / "empty");
    EXPECT_EQ(titles(), Titles{"empty"});
}

/// The path of the first module as quoted by its validation error.
std::string firstModulesPath(const std::string& modulesFolder)
{
    const CBibleModules modules(modulesFolder);
    const std::string message = messageOf<std::runtime_error>([&] { modules.ValidateBible(0); });
    const std::string before = "(from folder ";
    const std::size_t start = message.find(before) + before.size();
    return message.substr(start, message.find(");") - start);
}

TEST_F(BibleModules, TrailingSlashOfTheModulesFolderIsDropped)
{
    std::filesystem::create_directory(folder.path() / "abc");
    const std::string expected = folder.path().string() + "/abc";
    EXPECT_EQ(firstModulesPath(folder.path().string()), expected);
    EXPECT_EQ(firstModulesPath(folder.path().string() + "/"), expected);
}

TEST_F(BibleModules, OnlyOneTrailingSlashIsDropped)
{
    std::filesystem::create_directory(folder.path() / "abc");
    EXPECT_EQ(firstModulesPath(folder.path().string() + "//"), folder.path().string() + "//abc");
}

TEST_F(BibleModules, EmptyAndMissingFoldersHoldNoModule)
{
    EXPECT_EQ(CBibleModules(folder.path().string()).count(), 0u);
    EXPECT_EQ(CBibleModules(folder.file("missing")).count(), 0u);
    EXPECT_EQ(CBibleModules(folder.write("file", "text")).count(), 0u);
}

TEST_F(BibleModules, IndexAtTheCountThrowsEachOperationsMessage)
{
    addUntitled("one");
    const CBibleModules modules(folder.path().string());
    for (const unsigned int index : {modules.count(), 4294967295u}) {
        EXPECT_EQ(messageOf<std::out_of_range>([&] { modules.info(index); }), infoOutOfRange);
        EXPECT_EQ(messageOf<std::out_of_range>([&] { modules.loadBible(index); }), loadOutOfRange);
        EXPECT_EQ(messageOf<std::out_of_range>([&] { modules.ValidateBible(index); }), loadOutOfRange);
    }
}

TEST_F(BibleModules, InformationIsReadOnceAndKept)
{
    addUntitled("one");
    const CBibleModules modules(folder.path().string());
    const CBibleInfo* info = modules.info(0);
    folder.write("one/_Info_.txt", "later\r\n");
    EXPECT_EQ(modules.info(0), info);
    EXPECT_EQ(modules.info(0)->fullTitle(), "one");
}

TEST_F(BibleModules, InformationIsReadAtTheFirstCall)
{
    addUntitled("one");
    const CBibleModules modules(folder.path().string());
    folder.write("one/_Info_.txt", "before the first call\r\n");
    EXPECT_EQ(modules.info(0)->fullTitle(), "before the first call");
}

TEST_F(BibleModules, EachModuleHasItsOwnInformation)
{
    addUntitled("one");
    addUntitled("two");
    const CBibleModules modules(folder.path().string());
    EXPECT_NE(modules.info(0), modules.info(1));
}

TEST_F(BibleModules, CyrillicFolderNameIsAWindows1251Title)
{
    addUntitled("Ревизиран");
    EXPECT_EQ(titles(), Titles{cp1251("Ревизиран")});
}

TEST_F(BibleModules, CyrillicFoldersAreSortedIgnoringCase)
{
    addUntitled("бб");
    addUntitled("Аа");
    addUntitled("ВВ");
    EXPECT_EQ(titles(), (Titles{cp1251("Аа"), cp1251("бб"), cp1251("ВВ")}));
}

TEST_F(BibleModules, MessageOfACyrillicFolderHoldsItsNativeBytes)
{
    std::filesystem::create_directory(folder.path() / "Празен");
    EXPECT_EQ(firstModulesPath(folder.path().string()), folder.path().string() + "/Празен");
}

TEST_F(BibleModules, CyrillicModulesFolderWorks)
{
    smallModule().write(folder.path() / "преводи" / "един");
    const CBibleModules modules(folder.file("преводи"));
    ASSERT_EQ(modules.count(), 1u);
    const std::unique_ptr<const CBible> bible(modules.loadBible(0));
    EXPECT_EQ((*bible)[CRef(0, 0, 0, true)], cp1251("Бог рече"));
}

TEST_F(BibleModules, ListIsFixedWhenTheCatalogueIsMade)
{
    addUntitled("one");
    const CBibleModules modules(folder.path().string());
    addUntitled("two");
    std::filesystem::remove_all(folder.path() / "one");
    EXPECT_EQ(modules.count(), 1u);
    EXPECT_EQ(modules.info(0)->fullTitle(), "one");
}

TEST_F(BibleModules, EachLoadingGivesANewTranslation)
{
    addUntitled("one");
    const CBibleModules modules(folder.path().string());
    const std::unique_ptr<const CBible> first(modules.loadBible(0));
    const std::unique_ptr<const CBible> second(modules.loadBible(0));
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ((*first)[CRef(0, 0, 1, true)], (*second)[CRef(0, 0, 1, true)]);
}

TEST_F(BibleModules, LoadedTranslationOutlivesTheCatalogue)
{
    addUntitled("one");
    auto modules = std::make_unique<CBibleModules>(folder.path().string());
    const std::unique_ptr<const CBible> bible(modules->loadBible(0));
    modules.reset();
    EXPECT_EQ((*bible)[CRef(1, 0, 0, true)], "");
    EXPECT_EQ(bible->fullTitle(1), cp1251("Втора книга Моисеева - Изход"));
    std::vector<CRef> hits;
    bible->search(cp1251("земя"), true, false, hits);
    EXPECT_EQ(hits.size(), 1u);
}

TEST_F(BibleModules, ProofThrowsWhatTheTranslationsConstructorThrows)
{
    addUntitled("one");
    std::filesystem::remove(folder.path() / "one" / "Conc.bin");
    const CBibleModules modules(folder.path().string());
    const std::string path = folder.path().string() + "/one";
    const std::string message = "CBible::CBible(): Error loading Bible (from folder " + path +
                                ");\nError message: \"CFileVector::CFileVector(): cannot open file " + path +
                                "/Conc.bin\"";
    EXPECT_EQ(messageOf<std::runtime_error>([&] { modules.ValidateBible(0); }), message);
    EXPECT_EQ(messageOf<std::runtime_error>([&] { const CBible bible(path); }), message);
}

TEST_F(BibleModules, ProofOfASoundModuleThrowsNothing)
{
    addUntitled("one");
    EXPECT_NO_THROW(CBibleModules(folder.path().string()).ValidateBible(0));
}

std::string commonStructure()
{
    std::string text;
    for (int book = 0; book < 77; ++book)
        text += "2 31 25\r\n";
    return text;
}

TEST_F(BibleModules, GlobalStructureHasSeventySevenBooks)
{
    folder.write("BibleStructure.txt", commonStructure() + "9 9 9");
    const CBibleModules modules(folder.path().string());
    EXPECT_EQ(modules.globalStructure()->booksCount(), 77u);
    EXPECT_EQ(modules.globalStructure()->totalVersesCount(), 77u * 56u);
}

TEST_F(BibleModules, GlobalStructureIsReadOnceAndKept)
{
    const std::string path = folder.write("BibleStructure.txt", commonStructure());
    const CBibleModules modules(folder.path().string() + "/");
    const CBibleStructure* structure = modules.globalStructure();
    std::filesystem::remove(path);
    EXPECT_EQ(modules.globalStructure(), structure);
}

TEST_F(BibleModules, GlobalStructureThatFailedIsTriedAgain)
{
    const std::string path = folder.file("BibleStructure.txt");
    const CBibleModules modules(folder.path().string());
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { modules.globalStructure(); }),
              "CBibleSructure::CBibleSructure(): error opening file " + path);
    folder.write("BibleStructure.txt", "2 31 25");
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { modules.globalStructure(); }),
              "CBibleSructure::CBibleSructure(): error reading file " + path);
    folder.write("BibleStructure.txt", commonStructure());
    EXPECT_EQ(modules.globalStructure()->booksCount(), 77u);
}

// The catalogue should only have complete modules; callers that cannot be sure validate a module first.
TEST_F(BibleModulesDeathTest, LoadingADamagedModuleEndsTheProgram)
{
    addUntitled("one");
    std::filesystem::remove(folder.path() / "one" / "Conc.bin");
    const CBibleModules modules(folder.path().string());
    EXPECT_DEATH(modules.loadBible(0),
                 "CBibleModules::loadBible\\(\\) let out .*: CBible::CBible\\(\\): Error "
                 "loading Bible \\(from folder .*/one\\); Error message: ");
}

} // namespace
