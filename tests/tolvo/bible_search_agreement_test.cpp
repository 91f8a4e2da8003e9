// The search finds exactly the hits of the simple reference search: for all small inputs and for generated
// modules.

#include "module_files.h"
#include "plain_search.h"
#include "temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace Kedrin::Tolvo;
using test_support::ModuleFiles;
using test_support::TempFolder;

std::string bytesOf(std::size_t number, std::size_t byteCount)
{
    std::string bytes;
    for (std::size_t i = 0; i < byteCount; ++i)
        bytes.push_back(static_cast<char>(number >> (8 * i)));
    return bytes;
}

bool same(const CRef& a, const CRef& b)
{
    return a.bookID() == b.bookID() && a.chapter() == b.chapter() && a.verse() == b.verse() && a.isGlobal() &&
           b.isGlobal();
}

/// Searches both ways and compares the references; if the text is incomplete, the search has to throw.
void expectAgreement(const PlainSearch& plain, const std::string& part, bool caseSensitive)
{
    std::vector<CRef> hits;
    bool threw = false;
    try {
        plain.bible().search(part, false, caseSensitive, hits);
    } catch (const std::out_of_range&) {
        threw = true;
    }
    const std::vector<unsigned int> expected = plain.hits(part, caseSensitive);
    const bool agrees =
        std::equal(hits.begin(), hits.end(), expected.begin(), expected.end(),
                   [&](const CRef& hit, unsigned int v) { return same(hit, plain.refOf(v)); });
    ASSERT_TRUE(agrees) << hits.size() << " and " << expected.size() << " hits of "
                        << testing::PrintToString(part) << (caseSensitive ? ", exact" : "");
    ASSERT_NE(threw, plain.isComplete());
}

/// All texts over the alphabet, the empty one first, of up to `longest` characters.
std::vector<std::string> allTexts(const std::string& alphabet, std::size_t longest)
{
    std::vector<std::string> texts = {""};
    for (std::size_t start = 0, length = 1; length <= longest; ++length) {
        const std::size_t end = texts.size();
        for (; start < end; ++start)
            for (const char c : alphabet)
                texts.push_back(texts[start] + c);
    }
    return texts;
}

// Every text is a verse of one module, so needles that cross record boundaries occur too.
TEST(BibleSearchAgreement, OnAllSmallTextsAndNeedles)
{
    const std::string alphabet("aA\xB8\xA8\xE1\xC1\0", 7); // a A ё Ё б Б and the zero byte
    const std::vector<std::string> texts = allTexts(alphabet, 5);
    ModuleFiles files = test_support::smallModule();
    std::string text, point;
    for (const std::string& verse : texts) {
        point += bytesOf(text.size(), 4);
        text += bytesOf(verse.size(), 2) + verse;
    }
    files.bytes["CompactText.bin"] = text;
    files.bytes["CompactPoint.bin"] = point;
    files.bytes["BibleStructure.csv"] = "1 " + std::to_string(texts.size() - 7) + "\n2 3 4\n";
    const TempFolder folder;
    files.write(folder.path());
    const PlainSearch plain(folder.path().string());
    ASSERT_EQ(plain.verses(), texts);
    for (const std::string& needle : allTexts(alphabet, 4))
        for (const bool caseSensitive : {false, true})
            ASSERT_NO_FATAL_FAILURE(expectAgreement(plain, needle, caseSensitive));
}

/// Random modules; the same seed gives the same modules.
class ModuleMaker
{
public:
    explicit ModuleMaker(unsigned int seed) : m_random(seed) {}

    std::size_t below(std::size_t bound) { return m_random() % bound; }

    /// A text of a few letters in both cases, spaces and occasionally a zero byte.
    std::string text(std::size_t longest)
    {
        static const std::string letters("aAb \xB8\xA8\xE1\xC1\xFF\xDF", 10);
        std::string bytes(below(longest + 1), '\0');
        for (char& byte : bytes)
            byte = below(40) == 0 ? '\0' : letters[below(letters.size())];
        return bytes;
    }

    ModuleFiles module()
    {
        ModuleFiles files = test_support::smallModule();
        makeStructure(files);
        if (below(3) == 0)
            files.bytes["_Diff_.txt"] = "1 2 1 1 -2\n2 2 1 0 3\n6 2 1 1 1\n";
        makeText(files, below(20) == 0 ? 4000 : 40);
        if (below(10) == 0)
            files.bytes["CompactPoint.bin"].resize(4 * below(m_verseCount + 1));
        return files;
    }

private:
    void makeStructure(ModuleFiles& files)
    {
        m_verseCount = 0;
        std::string structure;
        const std::size_t bookCount = 1 + below(4);
        std::string titles = std::to_string(bookCount);
        for (std::size_t book = 0; book < bookCount; ++book) {
            titles += " " + std::to_string(5 - book);
            const std::size_t chapterCount = below(5);
            structure += std::to_string(chapterCount) + " ";
            for (std::size_t chapter = 0; chapter < chapterCount; ++chapter) {
                const std::size_t verseCount = below(4) == 0 ? 0 : below(30);
                structure += std::to_string(verseCount) + " ";
                m_verseCount += verseCount;
            }
        }
        files.bytes["BibleStructure.csv"] = structure;
        files.bytes["BibleTitles.txt"] = titles + "\n";
    }

    void makeText(ModuleFiles& files, std::size_t longest)
    {
        std::string& text = files.bytes["CompactText.bin"];
        text.clear();
        std::vector<std::size_t> offsets;
        const bool withGaps = below(4) == 0;
        for (std::size_t v = 0; v < m_verseCount; ++v) {
            const std::string verse = this->text(longest);
            offsets.push_back(text.size());
            text += bytesOf(verse.size(), 2) + verse + (withGaps ? this->text(9) : "");
        }
        disorder(offsets);
        if (below(4) == 0)
            pointAnywhere(offsets, text);
        std::string& point = files.bytes["CompactPoint.bin"];
        point.clear();
        for (const std::size_t offset : offsets)
            point += bytesOf(offset, 4);
    }

    void disorder(std::vector<std::size_t>& offsets)
    {
        const std::size_t way = below(6);
        if (way == 0)
            std::shuffle(offsets.begin(), offsets.end(), m_random);
        else if (way == 1)
            std::reverse(offsets.begin(), offsets.end());
        else if (way == 2 && !offsets.empty())
            for (std::size_t& offset : offsets) // several verses share a record
                offset = offsets[below(offsets.size())];
    }

    /// Moves some offsets to positions in other records whose bytes are a valid length.
    void pointAnywhere(std::vector<std::size_t>& offsets, const std::string& text)
    {
        for (std::size_t& offset : offsets) {
            const std::size_t place = text.size() < 2 ? 0 : below(text.size() - 1);
            const auto length =
                static_cast<unsigned char>(text[place]) + 256u * static_cast<unsigned char>(text[place + 1]);
            if (below(2) == 0 && place + 2 + length <= text.size())
                offset = place;
        }
    }

    std::mt19937 m_random;
    std::size_t m_verseCount = 0;
};

/// Either a part of a verse, possibly with changed case, or a random text.
std::string needleFor(const PlainSearch& plain, ModuleMaker& maker)
{
    if (plain.verses().empty() || maker.below(3) == 0)
        return maker.text(4);
    const std::string& verse = plain.verses()[maker.below(plain.verses().size())];
    const std::size_t start = maker.below(verse.size() + 1);
    std::string needle = verse.substr(start, 1 + maker.below(6));
    for (char& byte : needle)
        if (maker.below(3) == 0)
            byte = ut::cyr_chrupcase(byte);
    return needle;
}

class BibleSearchAgreement : public testing::TestWithParam<unsigned int>
{
};

constexpr int modulesPerSeed = 500;

TEST_P(BibleSearchAgreement, OnGeneratedModules)
{
    ModuleMaker maker(GetParam());
    for (int i = 0; i < modulesPerSeed; ++i) {
        SCOPED_TRACE(i);
        const TempFolder folder;
        maker.module().write(folder.path());
        const PlainSearch plain(folder.path().string());
        for (int needle = 0; needle < 8; ++needle)
            for (const bool caseSensitive : {false, true})
                ASSERT_NO_FATAL_FAILURE(expectAgreement(plain, needleFor(plain, maker), caseSensitive));
    }
}

// Larger than the blocks in which the text is read, so that needles occur at block boundaries too.
TEST_P(BibleSearchAgreement, OnTextsOfManyPieces)
{
    ModuleMaker maker(GetParam());
    std::string text, point;
    unsigned int verseCount = 0;
    for (; text.size() < 1200000; ++verseCount) {
        const std::string verse = maker.text(maker.below(500) == 0 ? 65535 : 200);
        point += bytesOf(text.size(), 4);
        text += bytesOf(verse.size(), 2) + verse;
    }
    ModuleFiles files = test_support::smallModule();
    files.bytes["CompactText.bin"] = text;
    files.bytes["CompactPoint.bin"] = point;
    files.bytes["BibleStructure.csv"] = "1 " + std::to_string(verseCount - 7) + "\n2 3 4\n";
    const TempFolder folder;
    files.write(folder.path());
    const PlainSearch plain(folder.path().string());
    ASSERT_GT(plain.verses().size(), 5000u);
    for (int needle = 0; needle < 60; ++needle)
        for (const bool caseSensitive : {false, true})
            ASSERT_NO_FATAL_FAILURE(expectAgreement(plain, needleFor(plain, maker), caseSensitive));
}

INSTANTIATE_TEST_SUITE_P(Seeds, BibleSearchAgreement,
                         testing::Values(11u, 23u, 37u, 41u, 53u, 67u, 79u, 97u));

} // namespace
