// doc/formats/verse-lines.md: its example is built and compared with the files that the other pages show, and its
// table of errors with the reader's.

#include "build_fixture.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace {

using build_test::bytesOf;

std::string pageNamed(const std::string& name) { return bytesOf(KEDRIN_FORMATS_FOLDER + ('/' + name)); }

/// Whether the line belongs to a dump: four spaces and eight digits, "    0000001f  c1 e8 ...  |text|".
bool isDumpLine(const std::string& line)
{
    constexpr std::size_t begin = 4, end = 12;
    return line.size() >= end && line.find_first_not_of(' ') == begin &&
           std::all_of(line.begin() + begin, line.begin() + end,
                       [](char c) { return std::isxdigit(c) != 0; });
}

/// The bytes of the first hex dump after the words in the page.
std::string dumpAfter(const std::string& page, const std::string& words)
{
    const std::size_t begin = page.find(words);
    EXPECT_NE(begin, std::string::npos) << words;
    std::istringstream rest(page.substr(std::min(begin, page.size())));
    std::string bytes;
    for (std::string line; std::getline(rest, line);) {
        if (!isDumpLine(line) && !bytes.empty())
            break;
        if (!isDumpLine(line))
            continue;
        std::istringstream hex(line.substr(0, line.find('|')));
        std::size_t offset = 0;
        hex >> std::hex >> offset;
        EXPECT_EQ(offset, bytes.size()) << line;
        for (unsigned int byte = 0; hex >> byte;)
            bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

/// The lines of the example in the page, including tabs.
std::string exampleText(const std::string& page)
{
    std::istringstream rest(page.substr(page.find("## Example")));
    std::string text;
    for (std::string line;
         std::getline(rest, line) &&
         line != "In hex (the right column shows ASCII only; a Cyrillic letter is two bytes):";)
        if (line.starts_with("    "))
            text += line.substr(4) + '\n';
    return text;
}

class VerseLinePage : public build_test::Building
{
protected:
    const std::string m_page = pageNamed("verse-lines.md");
};

TEST_F(VerseLinePage, ShowsTheSameExampleInTextAndHex)
{
    const std::string bytes = dumpAfter(m_page, "In hex");
    EXPECT_EQ(bytes.size(), 182u);
    EXPECT_EQ(exampleText(m_page), bytes);
}

TEST_F(VerseLinePage, ExampleMakesTheFilesOfTheWorkedModule)
{
    ASSERT_EQ(build(dumpAfter(m_page, "In hex")).code, 0);
    const std::pair<const char*, const char*> shown[] = {{"BibleStructure.csv", "bible-structure.md"},
                                                         {"CompactText.bin", "compact-text.md"},
                                                         {"CompactPoint.bin", "compact-text.md"},
                                                         {"WordList.txt", "word-list.md"},
                                                         {"WordPoint.bin", "word-list.md"},
                                                         {"Conc.bin", "concordance.md"},
                                                         {"ConcP.bin", "concordance.md"}};
    for (const auto& [file, page] : shown) {
        const std::string text = pageNamed(page);
        EXPECT_EQ(made(file), dumpAfter(text.substr(text.find("## Example")), file)) << file;
    }
}

TEST_F(VerseLinePage, ExampleMakesTheTitlesAndTheDifferencesThatThePageSays)
{
    ASSERT_EQ(build(dumpAfter(m_page, "In hex")).code, 0);
    EXPECT_EQ(made("_Diff_.txt"), "");
    EXPECT_EQ(made("_Info_.txt"), "Made\nMade\nMade\n");
    EXPECT_TRUE(made("BibleTitles.txt").starts_with("2 0 1\n"));
}

TEST_F(VerseLinePage, ListsTheErrorsOfTheReadersHeader)
{
    const std::string header = bytesOf(KEDRIN_MODTOOL_FOLDER "/source/verse_lines/verse_line_reader.h");
    unsigned int count = 0;
    for (std::size_t begin = m_page.find("`%s:"); begin != std::string::npos;
         begin = m_page.find("`%s:", begin + 1)) {
        const std::string shown = m_page.substr(begin + 1, m_page.find('`', begin + 1) - begin - 1);
        if (shown.find("verse number") != std::string::npos)
            continue; // described in words in the header: the same with "verse number"
        std::string message;
        for (const char c : shown)
            message += c == '"' ? "\\\"" : std::string(1, c);
        EXPECT_NE(header.find('"' + message + '"'), std::string::npos) << message;
        ++count;
    }
    EXPECT_GE(count, 9u);
}

} // namespace
