// Whole Bibles: those of Debian's SWORD packages where they are installed, and the texts in the folder that
// KEDRIN_TEST_DATA names, or beside the project.

#include "build_fixture.h"
#include "text_encoder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

namespace {

using build_test::Result;
using Kedrin::Tolvo::CBible;
using Kedrin::Tolvo::CRef;

class RealText : public build_test::Building
{
protected:
    /// Builds an installed Bible; skips the test where it is not installed.
    void buildInstalled(const std::string& name)
    {
        const Result result = build_test::run({"build", "sword:" + name, made(), "--substitute"});
        if (result.err.starts_with("kedrin-module: no SWORD Bible is named"))
            GTEST_SKIP() << result.err;
        ASSERT_EQ(result.code, 0) << result.err;
        m_report = result.out;
        m_bible = std::make_unique<CBible>(made());
    }

    /// Builds a text of the test data; skips the test where there is none.
    void buildData(const std::string& name, const std::vector<std::string>& options)
    {
        const char* folder = std::getenv("KEDRIN_TEST_DATA");
        const std::string path = (folder ? folder : KEDRIN_NEIGHBOUR_DATA) + ('/' + name);
        if (std::filesystem::exists(path))
            m_lines = build_test::bytesOf(path);
        else if (std::filesystem::exists(path + ".xz"))
            unpack(path + ".xz");
        else
            GTEST_SKIP() << "no " << path;
        const Result result = build(m_lines, options);
        ASSERT_EQ(result.code, 0) << result.err;
        m_report = result.out;
        m_bible = std::make_unique<CBible>(made());
    }

    void unpack(const std::string& path)
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(
            ::popen(("xz -dc '" + path + "'").c_str(), "r"), ::pclose);
        ASSERT_TRUE(pipe);
        std::array<char, 65536> piece;
        while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe.get()))
            m_lines.append(piece.data(), count);
        ASSERT_FALSE(m_lines.empty());
    }

    bool isReported(const std::string& line) const { return m_report.find(line) != std::string::npos; }

    /// A verse of a book by its global number; chapter and verse as people count.
    std::string at(unsigned int globalBook, unsigned int chapter, unsigned int verse) const
    {
        for (unsigned int book = 0; book < m_bible->booksCount(); ++book)
            if (m_bible->toGlobal(CRef(book, 0, 0, false)).bookID() == globalBook)
                return Kedrin::ModTool::toUtf8((*m_bible)[CRef(book, chapter - 1, verse - 1, false)]);
        return "<no such book>";
    }

    std::size_t hits(const std::string& cp1251Word) const
    {
        std::vector<CRef> found;
        m_bible->search(cp1251Word, true, false, found);
        return found.size();
    }

    /// Every line of the source stands in the module as it is: for texts that need no substitute.
    void expectEveryLine(const std::string& withoutBook) const
    {
        std::istringstream lines(m_lines);
        std::vector<std::string> stored;
        const std::string content = made("CompactText.bin");
        for (std::size_t i = 0; i + 1 < content.size();) {
            const std::size_t length =
                static_cast<unsigned char>(content[i]) + 256u * static_cast<unsigned char>(content[i + 1]);
            stored.push_back(content.substr(i + 2, length));
            i += 2 + length;
        }
        std::size_t number = 0;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(withoutBook + '\t'))
                continue;
            std::size_t tab = 0;
            for (int i = 0; i < 3; ++i)
                tab = line.find('\t', tab) + 1;
            ASSERT_LT(number, stored.size());
            ASSERT_EQ(Kedrin::ModTool::toUtf8(stored[number++]), line.substr(tab)) << line;
        }
        EXPECT_EQ(number, stored.size());
    }

    std::string m_lines;
    std::string m_report;
    std::unique_ptr<CBible> m_bible;
};

TEST_F(RealText, KjvOfDebianIsWhole)
{
    buildInstalled("KJV");
    if (!m_bible)
        return;
    EXPECT_TRUE(isReported("holds         66 books, 1189 chapters, 31102 verses\n")) << m_report;
    EXPECT_TRUE(isReported("31102 of 31102 verses keep their place both ways (31102 without any record)\n"));
    EXPECT_TRUE(at(53, 3, 16).starts_with("¶ For God so loved the world, that he gave his only begotten Son"))
        << at(53, 3, 16);
    EXPECT_EQ(
        at(18, 119, 176),
        "I have gone astray like a lost sheep; seek thy servant; for I do not forget thy commandments.");
    EXPECT_EQ(at(76, 22, 21), "The grace of our Lord Jesus Christ be with you all. Amen.");
    EXPECT_EQ(
        at(18, 3, 1),
        "A Psalm of David, when he fled from Absalom his son. LORD, how are they increased that trouble me! "
        "many are they that rise up against me.");
    EXPECT_EQ(hits("begat"), 139u);
}

TEST_F(RealText, WebOfDebianIsWholeWithItsDeuterocanonicalBooks)
{
    buildInstalled("WEB");
    if (!m_bible)
        return;
    EXPECT_TRUE(isReported("holds         76 books, 1358 chapters, 36817 verses\n")) << m_report;
    EXPECT_TRUE(at(53, 3, 16).starts_with("For God so loved the world")) << at(53, 3, 16);
    EXPECT_TRUE(at(40, 1, 1).starts_with("The book of the words of Tobit")) << at(40, 1, 1);
    EXPECT_TRUE(at(18, 119, 176).starts_with("I have gone astray like a lost sheep.")) << at(18, 119, 176);
    EXPECT_TRUE(at(76, 22, 21).starts_with("The grace of the Lord Jesus Christ be with all the saints."))
        << at(76, 22, 21);
    for (const char* book : {"EsthGr", "PrMan", "AddPs", "4Macc"})
        EXPECT_TRUE(isReported("left out      " + std::string(book) + ": ")) << book;
}

TEST_F(RealText, BulgarianOf1940IsWhole)
{
    buildData("bg-1940.vpl", {});
    if (!m_bible)
        return;
    EXPECT_TRUE(isReported("holds         66 books, 1189 chapters, 31101 verses\n")) << m_report;
    EXPECT_TRUE(isReported("numbering     KJV (fits best)\n"));
    EXPECT_FALSE(isReported("replaced"));
    EXPECT_EQ(hits("\xE8"), 22448u); // "и", counted in the text itself
    expectEveryLine("none");
}

TEST_F(RealText, RussianSynodalIsWholeAndProfitsInJonahAlone)
{
    buildData("ru-synodal.vpl", {});
    if (!m_bible)
        return;
    EXPECT_TRUE(isReported("holds         77 books, 1361 chapters, 37086 verses\n")) << m_report;
    EXPECT_TRUE(isReported("numbering     Synodal (fits best)\n"));
    EXPECT_TRUE(isReported("34150 of 37086 verses keep their place both ways (34140 without any record)\n"));
    EXPECT_TRUE(isReported("left out      PrMan: 12 verses, not in the common numbering\n"));
    EXPECT_FALSE(isReported("replaced"));
    expectEveryLine("PrMan");
}

TEST_F(RealText, MatthewOfOurDaysNeedsOneSubstitute)
{
    buildData("bg-kjv-matt.vpl", {"--substitute"});
    if (!m_bible)
        return;
    EXPECT_TRUE(isReported("holds         1 book, 28 chapters, 1071 verses\n")) << m_report;
    EXPECT_TRUE(isReported("replaced      U+045D CYRILLIC SMALL LETTER I WITH GRAVE by \"и\", 2 times, "
                           "first Matt 15:28\n"));
}

} // namespace
