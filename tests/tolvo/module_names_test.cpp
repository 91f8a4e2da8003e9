// Modules directories and module folders with unusual names.

#include "module_files.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <vector>

namespace {

using namespace Kedrin::Tolvo;
using test_support::cp1251;
using test_support::messageOf;
using test_support::ModuleFiles;
using test_support::TempFolder;

/// Writes modules without an information record, so that their titles are the names of their folders.
class ModuleNames : public testing::Test
{
protected:
    void add(const std::string& name) const
    {
        ModuleFiles files = test_support::smallModule();
        files.bytes.erase("_Info_.txt");
        files.write(folder.path() / name);
    }

    /// The titles in the catalogue as Windows-1251, after each module was validated, loaded and read.
    std::vector<std::string> titles() const
    {
        const CBibleModules modules(folder.path().string());
        std::vector<std::string> titles;
        for (unsigned int i = 0; i < modules.count(); ++i) {
            modules.ValidateBible(i);
            const std::unique_ptr<const CBible> bible(modules.loadBible(i));
            EXPECT_EQ((*bible)[CRef(0, 0, 0, false)], cp1251("Бог рече"));
            EXPECT_EQ(bible->info()->fullTitle(), modules.info(i)->fullTitle());
            titles.push_back(modules.info(i)->fullTitle());
        }
        return titles;
    }

    TempFolder folder;
};

TEST_F(ModuleNames, KeepAByteOrderMark)
{
    add("\xEF\xBB\xBF"
        "a");
    EXPECT_EQ(titles(), std::vector<std::string>{"?a"});
}

TEST_F(ModuleNames, ThatAreNoUtf8AreListedOpenedAndTakenForWindows1251)
{
    add(cp1251("Библия"));
    add("caf\xE9");
    add("Б\xFF"
        "б");
    add("a\xD0");
    EXPECT_EQ(titles(),
              (std::vector<std::string>{cp1251("aР"), cp1251("cafй"), cp1251("Библия"), cp1251("Бяб")}));
}

TEST_F(ModuleNames, OfAMissingFileKeepTheirBytesInTheMessage)
{
    add("a\xFF");
    std::filesystem::remove(folder.path() / "a\xFF" / "Conc.bin");
    EXPECT_NE(messageOf<std::runtime_error>([&] { titles(); }).find("/a\xFF/Conc.bin"), std::string::npos);
}

TEST_F(ModuleNames, DifferingInLetterCaseAloneHaveAFixedOrder)
{
    for (const char* name : {"b", "B", "a", "A", "Б", "б"})
        add(name);
    EXPECT_EQ(titles(), (std::vector<std::string>{"A", "a", "B", "b", cp1251("Б"), cp1251("б")}));
}

TEST_F(ModuleNames, OfManyFormsGiveTheLastComponent)
{
    for (const char* path :
         {"/x/module", "/x/module/", "/x/module//", "/x/./module", "/x/other/../module", "module"})
        EXPECT_EQ(folder_name(path), "module") << path;
}

TEST_F(ModuleNames, RootIsAModulesDirectory)
{
    std::size_t expected = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/")) {
        std::error_code ignored;
        expected += entry.is_directory(ignored) && !entry.path().filename().string().starts_with('.');
    }
    const CBibleModules modules("/");
    EXPECT_EQ(modules.count(), expected);
    ASSERT_GT(modules.count(), 0u);
    EXPECT_TRUE(messageOf<std::runtime_error>([&] {
                    modules.ValidateBible(0);
                }).starts_with("CBible::CBible(): Error loading Bible (from folder /"));
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { modules.globalStructure(); }),
              "CBibleSructure::CBibleSructure(): error opening file /BibleStructure.txt");
}

} // namespace
