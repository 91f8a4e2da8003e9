// Reads the hex dumps from the pages of doc/formats and loads them: an error in a page makes a test fail.

#include "module_files.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

namespace {

using namespace Kedrin::Tolvo;

/// The bytes of the dump lines ("    0000001f  c1 e8  ...  |text|") from the current one on; the last line is
/// the size.
std::string readDump(std::istream& page, std::string line)
{
    static const std::regex dumpLine("    ([0-9a-f]{8})(?:  ([0-9a-f ]{47,48}) *\\|.*\\|)?");
    std::string bytes;
    std::smatch parts;
    for (; std::regex_match(line, parts, dumpLine); std::getline(page, line)) {
        EXPECT_EQ(std::stoul(parts[1], nullptr, 16), bytes.size()) << line;
        std::istringstream hex(parts[2]);
        for (unsigned int byte; hex >> std::hex >> byte;)
            bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

/// The files of the example module that a page shows, by name. A dump belongs to the file name that precedes
/// it.
std::map<std::string, std::string> dumpedFiles()
{
    static const std::regex fileName("(\\w+\\.(?:txt|csv|bin))(?: of the|:)");
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(KEDRIN_FORMATS_FOLDER)) {
        std::ifstream page(entry.path());
        std::string named;
        for (std::string line; std::getline(page, line);) {
            std::smatch found;
            if (line.starts_with("    00000000  ") && !named.empty()) {
                const std::string bytes = readDump(page, line);
                const auto [known, isNew] = files.emplace(named, bytes);
                EXPECT_TRUE(isNew || known->second == bytes) << named << " differs in " << entry.path();
                named.clear();
            } else if (std::regex_search(line, found, fileName)) {
                named = found[1];
            } else if (line.starts_with("#")) {
                named.clear();
            }
        }
    }
    return files;
}

class FormatPages : public testing::Test
{
protected:
    void SetUp() override { test_support::ModuleFiles{m_files}.write(m_folder.path() / "proben"); }

    const std::map<std::string, std::string> m_files = dumpedFiles();
    test_support::TempFolder m_folder;
};

TEST_F(FormatPages, ShowAllTenFiles)
{
    EXPECT_EQ(m_files.size(), 10u);
    std::size_t total = 0;
    for (const auto& [name, bytes] : m_files)
        total += bytes.size();
    EXPECT_EQ(total, 461u);
}

TEST_F(FormatPages, ShowAModuleThatLoads)
{
    const CBible bible(m_folder.file("proben"));
    ASSERT_EQ(bible.booksCount(), 2u);
    EXPECT_EQ(bible.wordsCount(), 13u);
    EXPECT_EQ(bible[CRef(0, 0, 0, false)], test_support::cp1251("В начало Бог създаде света."));
    EXPECT_EQ(bible[CRef(0, 1, 1, false)], test_support::cp1251("Бог видя деня."));
    EXPECT_EQ(bible[CRef(1, 0, 0, false)], "");
    EXPECT_EQ(bible[CRef(1, 0, 1, false)], test_support::cp1251("Ето имената."));
    EXPECT_EQ(CRef(1, 0, 1).toString(&bible), test_support::cp1251("Изх 1:2"));
    EXPECT_EQ(bible.info()->fullTitle(), test_support::cp1251("Пробен превод"));
}

TEST_F(FormatPages, ShowAConcordanceThatAgreesWithTheText)
{
    const CBible bible(m_folder.file("proben"));
    std::vector<CRef> whole, part;
    bible.search(test_support::cp1251("бог"), true, false, whole);
    bible.search(test_support::cp1251("бог"), false, false, part);
    ASSERT_EQ(whole.size(), 3u);
    ASSERT_EQ(part.size(), 3u);
    for (std::size_t i = 0; i < whole.size(); ++i)
        EXPECT_EQ(whole[i].toString(&bible), part[i].toString(&bible));
}

} // namespace
