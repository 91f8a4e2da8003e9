// Complete Bibles: those of Debian's SWORD packages, texts derived from them, and those of KEDRIN_TEST_DATA
// if available.

#include "build_fixture.h"
#include "made_lines.h"
#include "real_data.h"
#include "text_encoder.h"

#include <memory>

namespace {

using build_test::Result;
using Kedrin::Tolvo::CBible;
using Kedrin::Tolvo::CRef;

class RealText : public build_test::Building
{
protected:
    /// Builds a Bible of a Debian package that ./test installs.
    void buildInstalled(const std::string& name)
    {
        const Result result =
            build_test::run({"build", "sword:" + name, made(), "--substitute", "--verbose"});
        ASSERT_EQ(result.code, 0) << result.err;
        m_report = result.out;
        m_bible = std::make_unique<CBible>(made());
    }

    void buildLines(const std::string& lines, const std::vector<std::string>& options)
    {
        ASSERT_FALSE(lines.empty());
        m_lines = lines;
        const Result result = build(m_lines, options);
        ASSERT_EQ(result.code, 0) << result.err;
        m_report = result.out;
        m_bible = std::make_unique<CBible>(made());
    }

    bool isReported(const std::string& line) const { return m_report.find(line) != std::string::npos; }

    /// A verse of a book given by its global number; chapter and verse from 1.
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

    /// Checks that the module has every line of the source unchanged: for texts without replaced characters.
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
    ASSERT_NO_FATAL_FAILURE(buildInstalled("KJV"));
    EXPECT_TRUE(isReported("contains      66 books, 1189 chapters, 31102 verses\n")) << m_report;
    EXPECT_TRUE(isReported("31102 of 31102 verses map correctly both ways (31102 without any record)\n"));
    EXPECT_TRUE(isReported("letters       3414532 letters and digits in the source\n")) << m_report;
    EXPECT_TRUE(isReported("              3226548 in the verses of the module\n"));
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
    ASSERT_NO_FATAL_FAILURE(buildInstalled("WEB"));
    EXPECT_TRUE(isReported("contains      76 books, 1358 chapters, 36817 verses\n")) << m_report;
    EXPECT_TRUE(isReported("letters       3880231 letters and digits in the source\n")) << m_report;
    EXPECT_TRUE(isReported("              3664070 in the verses of the module\n"));
    EXPECT_TRUE(
        isReported("joined        6 ranges of verses, with the text in the first, first at Sir 11:15\n"));
    EXPECT_TRUE(at(53, 3, 16).starts_with("For God so loved the world")) << at(53, 3, 16);
    EXPECT_TRUE(at(40, 1, 1).starts_with("The book of the words of Tobit")) << at(40, 1, 1);
    EXPECT_TRUE(at(18, 119, 176).starts_with("I have gone astray like a lost sheep.")) << at(18, 119, 176);
    EXPECT_TRUE(at(76, 22, 21).starts_with("The grace of the Lord Jesus Christ be with all the saints."))
        << at(76, 22, 21);
    for (const char* book : {"EsthGr", "PrMan", "AddPs", "4Macc"})
        EXPECT_TRUE(isReported("left out      " + std::string(book) + ": ")) << book;
}

TEST_F(RealText, MadeCyrillicIsWhole)
{
    ASSERT_NO_FATAL_FAILURE(buildLines(build_test::cyrillicLines("KJV"), {}));
    EXPECT_TRUE(isReported("contains      66 books, 1189 chapters, 31102 verses\n")) << m_report;
    EXPECT_TRUE(isReported("numbering     KJV (best match)\n"));
    EXPECT_FALSE(isReported("replaced"));
    EXPECT_EQ(hits("\xE1\xE5\xE3\xE0\xF2"), 139u); // "begat", case-sensitive
    expectEveryLine("none");
}

TEST_F(RealText, MadeSynodalIsCompleteAndGainsInJonahOnly)
{
    ASSERT_NO_FATAL_FAILURE(buildLines(build_test::synodalLines(), {}));
    EXPECT_TRUE(isReported("contains      77 books, 1361 chapters, 37087 verses\n")) << m_report;
    EXPECT_TRUE(isReported("numbering     Synodal (best match)\n"));
    EXPECT_TRUE(isReported("34150 of 37087 verses map correctly both ways (34140 without any record)\n"));
    EXPECT_TRUE(isReported("left out      PrMan: 12 verses, not in the global numbering\n"));
    EXPECT_FALSE(isReported("replaced"));
    expectEveryLine("PrMan");
}

TEST_F(RealText, MadeMatthewNeedsOneSubstitute)
{
    std::string lines = build_test::cyrillicLines("KJV", {"Matt"});
    for (const char* position : {"Matt\t15\t28\t", "Matt\t28\t20\t"})
        lines.insert(lines.find('\n', lines.find(position)), " ѝ");
    ASSERT_NO_FATAL_FAILURE(buildLines(lines, {"--substitute"}));
    EXPECT_TRUE(isReported("contains      1 book, 28 chapters, 1071 verses\n")) << m_report;
    EXPECT_TRUE(
        isReported("replaced      U+045D CYRILLIC SMALL LETTER I WITH GRAVE with \"и\", 2 times, first at "
                   "Matt 15:28\n"));
}

#ifdef KEDRIN_TEST_DATA

TEST_F(RealText, BulgarianOf1940IsWhole)
{
    ASSERT_NO_FATAL_FAILURE(buildLines(build_test::realText("bg-1940.vpl"), {}));
    EXPECT_TRUE(isReported("contains      66 books, 1189 chapters, 31101 verses\n")) << m_report;
    EXPECT_TRUE(isReported("numbering     KJV (best match)\n"));
    EXPECT_FALSE(isReported("replaced"));
    EXPECT_EQ(hits("\xE8"), 22448u); // "и", counted in the text itself
    expectEveryLine("none");
}

TEST_F(RealText, RussianSynodalIsCompleteAndGainsInJonahOnly)
{
    ASSERT_NO_FATAL_FAILURE(buildLines(build_test::realText("ru-synodal.vpl"), {}));
    EXPECT_TRUE(isReported("contains      77 books, 1361 chapters, 37086 verses\n")) << m_report;
    EXPECT_TRUE(isReported("numbering     Synodal (best match)\n"));
    EXPECT_TRUE(isReported("34150 of 37086 verses map correctly both ways (34140 without any record)\n"));
    EXPECT_TRUE(isReported("left out      PrMan: 12 verses, not in the global numbering\n"));
    EXPECT_FALSE(isReported("replaced"));
    expectEveryLine("PrMan");
}

TEST_F(RealText, MatthewOfOurDaysNeedsOneSubstitute)
{
    ASSERT_NO_FATAL_FAILURE(buildLines(build_test::realText("bg-kjv-matt.vpl"), {"--substitute"}));
    EXPECT_TRUE(isReported("contains      1 book, 28 chapters, 1071 verses\n")) << m_report;
    EXPECT_TRUE(
        isReported("replaced      U+045D CYRILLIC SMALL LETTER I WITH GRAVE with \"и\", 2 times, first at "
                   "Matt 15:28\n"));
}

#endif

} // namespace
