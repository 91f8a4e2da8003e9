// doc/formats/verse-lines.md: its example is built and compared with the files that the other pages show, and its
// table of errors with the reader's.

#include "build_fixture.h"

#include <fstream>
#include <regex>
#include <sstream>

namespace {

using build_test::bytesOf;

std::string pageNamed(const std::string& name) { return bytesOf(KEDRIN_FORMATS_FOLDER + ('/' + name)); }

/// The bytes of the first hex dump that follows the words in the page.
std::string dumpAfter(const std::string& page, const std::string& words)
{
    static const std::regex dumpLine("    ([0-9a-f]{8})(?:  ([0-9a-f ]{47,48}) *\\|.*\\|)?");
    const std::size_t place = page.find(words);
    EXPECT_NE(place, std::string::npos) << words;
    std::istringstream rest(page.substr(std::min(place, page.size())));
    std::string bytes;
    for (std::string line; std::getline(rest, line);) {
        std::smatch parts;
        if (!std::regex_match(line, parts, dumpLine)) {
            if (!bytes.empty())
                break;
            continue;
        }
        EXPECT_EQ(std::stoul(parts[1], nullptr, 16), bytes.size()) << line;
        std::istringstream hex(parts[2]);
        for (unsigned int byte; hex >> std::hex >> byte;)
            bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

/// The lines of the example as the page shows them, tabs and all.
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
    const std::string header = bytesOf(KEDRIN_MODTOOL_FOLDER "/verse_line_reader.h");
    static const std::regex quoted("`(%s:[^`]*)`");
    unsigned int count = 0;
    for (std::sregex_iterator found(m_page.begin(), m_page.end(), quoted), end; found != end; ++found) {
        std::string message = std::regex_replace((*found)[1].str(), std::regex("\""), "\\\"");
        if (message.find("verse number") != std::string::npos)
            continue; // the header has it in the words: the same with "verse number"
        EXPECT_NE(header.find('"' + message + '"'), std::string::npos) << message;
        ++count;
    }
    EXPECT_GE(count, 9u);
}

} // namespace
