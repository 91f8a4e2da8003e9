// The same text through every format gives the same module: the Bibles of Debian's SWORD packages, texts made of them,
// and those of KEDRIN_TEST_DATA where it is. The figures and the reasons of the differences stand in
// doc/formats/source-tests.md.

#include "same_text.h"

namespace same_text {

namespace {

TEST_F(SameText, EnglishOf1769DiffersOnlyWhereTheLibraryCapitalises)
{
    const MarkedBible bible = build_test::installedBible("KJV");
    ASSERT_FALSE(bible.empty()) << "sword-text-kjv is not installed";
    build("sword:KJV", "plain");
    buildMarked(bible);
    constexpr std::size_t markers = 27; // of USFM, each a backslash and two letters in the source
    constexpr std::size_t capitalised = 10;
    constexpr std::size_t ligatures = 96; // each becomes two letters
    for (const Format& through : formats()) {
        const char* format = through.name;
        const std::vector<Difference> found = differences(format);
        for (const Difference& difference : found)
            EXPECT_EQ(inSmallLetters(difference.first), inSmallLetters(difference.second)) << format;
        EXPECT_EQ(found.size(), capitalised) << format;
        EXPECT_EQ(charactersOf(format), charactersMarked(bible, {}) + ligatures - 3 * markers) << format;
        EXPECT_EQ(reportLine(format, "words"), reportLine("plain", "words"));
    }
    expectReported("plain", "kept          ", markers, " texts of unknown marker");
    for (const Format& through : formats())
        if (!through.hasMarkersOfUsfm)
            expectReported(through.name, "kept          ", markers, " texts of unknown marker");
    expectReported("plain", "left out      ", countMarks(bible).notes, " note");
    expectRows("KJV", "SWORD");
}

TEST_F(SameText, EnglishOfOurDaysIsTheSame)
{
    const MarkedBible bible = build_test::installedBible("WEB");
    ASSERT_FALSE(bible.empty()) << "sword-text-web is not installed";
    m_versification = "NRSVA";
    build("sword:WEB", "plain");
    buildMarked(bible);
    for (const Format& through : formats()) {
        const char* format = through.name;
        for (const Difference& difference : differences(format))
            ADD_FAILURE() << format << '\n' << difference.first << '\n' << difference.second;
        EXPECT_EQ(reportLine(format, "words"), reportLine("plain", "words"));
        EXPECT_EQ(charactersOf(format), charactersMarked(bible, {"EsthGr", "PrMan", "AddPs", "4Macc"}))
            << format;
    }
    expectRows("WEB", "SWORD");
}

TEST_F(SameText, MadeCyrillicWithNotesIsTheSame)
{
    const std::string lines = build_test::cyrillicLines("KJV");
    expectSameEverywhere(lines, build_test::notesFor(lines), "none");
}

TEST_F(SameText, MadeSynodalIsTheSame)
{
    m_versification = "Synodal";
    expectSameEverywhere(build_test::synodalLines(), "", "PrMan");
}

TEST_F(SameText, MadeMatthewIsTheSame)
{
    expectSameEverywhere(build_test::cyrillicLines("KJV", {"Matt"}), "", "none");
}

#ifdef KEDRIN_TEST_DATA

TEST_F(SameText, BulgarianOf1940IsTheSame) { expectSameOfData("bg-1940.vpl", "bg-1940.notes.tsv", "none"); }

TEST_F(SameText, RussianSynodalIsTheSame)
{
    m_versification = "Synodal";
    expectSameOfData("ru-synodal.vpl", "none", "PrMan");
}

TEST_F(SameText, MatthewOfOurDaysIsTheSame) { expectSameOfData("bg-kjv-matt.vpl", "none", "none"); }

#endif

} // namespace

} // namespace same_text
