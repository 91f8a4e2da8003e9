// Databases of random texts: every letter of them is in the module or in something that the report counts.

#include "balance_fixture.h"
#include "made_sqlite.h"

namespace {

using balance_test::CMaker;

class SqliteBalance : public balance_test::LetterBalance
{
protected:
    void expectBalanceOf(void (*makeText)(CMaker&)) const;
};

/// A text of a verse with tags.
void makeVerse(CMaker& maker)
{
    static constexpr const char* elements[] = {"S", "f", "J", "h", "n", "i", "m", "t", "sup", "e"};
    static constexpr const char* singles[] = {"<pb/>", "<br/>", "<f>", "</J>", " < ", "<!-- no text -->"};
    for (unsigned int parts = maker.number(6); parts != ~0u; --parts) {
        maker.words();
        const std::string name = maker.oneOf(elements);
        maker.text('<' + name + '>');
        maker.words();
        maker.text("</" + name + '>');
        maker.text(maker.oneOf(singles));
    }
}

/// A text of a verse in RTF.
void makeRtf(CMaker& maker)
{
    static constexpr const char* controls[] = {"\\cf6 ",    "{\\b ", "\\b0 ",        "}",        "\\super ",
                                               "\\super0 ", "\\v ",  "\\v0 ",        "{\\*\\x ", "\\par ",
                                               "\\par\\9",  "\\",    "{\\footnote ", "\\~"};
    maker.text("\\par ");
    for (unsigned int parts = maker.number(8); parts != ~0u; --parts) {
        maker.text(maker.oneOf(controls));
        maker.words();
    }
}

void SqliteBalance::expectBalanceOf(void (*makeText)(CMaker&)) const
{
    for (unsigned int seed = 0; seed < 20; ++seed) {
        std::vector<build_test::SqliteVerse> verses;
        std::uint64_t count = 0;
        for (unsigned int verse = 0; verse < 60; ++verse) {
            CMaker maker(100 * seed + verse);
            makeText(maker);
            count += maker.count();
            verses.push_back({verse % 7 == 0 ? 790u : 10u, 1, verse / 2, maker.document()});
        }
        const std::string file = m_folder.file("a.db");
        build_test::writeSqlite(file, verses);
        const auto result = build_test::run({"build", file, made(), "--substitute", "--verbose"});
        ASSERT_EQ(result.code, 0) << result.err;
        EXPECT_NE(result.out.find("\nletters       " + std::to_string(count) +
                                  " letters and digits in the source\n"),
                  std::string::npos)
            << result.out;
    }
}

TEST_F(SqliteBalance, OfRandomTextsWithTags) { expectBalanceOf(makeVerse); }
TEST_F(SqliteBalance, OfRandomTextsInRtf) { expectBalanceOf(makeRtf); }

} // namespace
