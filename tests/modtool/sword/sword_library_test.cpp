// SWORD Bibles as sources, generated for the tests.

#include "build_fixture.h"
#include "made_sword.h"
#include "random_entry.h"

namespace {

using build_test::Result;
using build_test::run;

class SwordSource : public build_test::Building
{
protected:
    Result buildSword(const std::string& name) const { return run({"build", "sword:" + name, made()}); }

    /// The stored text of an OSIS entry.
    std::string textOf(const std::string& raw) const
    {
        m_sword.add("Made", {{"Gen 1:1", raw}, {"Gen 1:2", "край"}});
        const Result result = buildSword("Made");
        EXPECT_EQ(result.code, 0) << result.err;
        return result.code == 0 ? verse(0, 0, 0) : "";
    }

    const build_test::MadeSword m_sword;
};

TEST_F(SwordSource, HasItsBooksInItsOwnOrder)
{
    m_sword.add("Made", {{"Jude 1:2", "в"}, {"Gen 1:1", "а"}, {"Gen 2:1", "б"}});
    ASSERT_EQ(buildSword("Made").code, 0);
    EXPECT_TRUE(made("BibleTitles.txt").starts_with("2 0 61\n"));
    EXPECT_EQ(made("BibleStructure.csv"), "2 1 1\n1 2\n");
    EXPECT_EQ(verse(1, 0, 1), "в");
}

TEST_F(SwordSource, GivesTitlesAndCopyright)
{
    m_sword.add("Made", {{"Gen 1:1", "а"}},
                "Description=A made Bible\nAbbreviation=MB\nAbout=First\\par Second {\\i third}\n"
                "Copyright=Nobody\nDistributionLicense=Public Domain\n");
    ASSERT_EQ(buildSword("Made").code, 0);
    EXPECT_EQ(made("_Info_.txt"), "A made Bible\nMB\nMB\nFirst\nSecond third\nCopyright: Nobody\n"
                                  "License: Public Domain\n");
}

TEST_F(SwordSource, WithoutTitlesIsCalledByItsName)
{
    m_sword.add("Made", {{"Gen 1:1", "а"}});
    ASSERT_EQ(buildSword("Made").code, 0);
    EXPECT_EQ(made("_Info_.txt"), "Made\nMade\nMade\n");
}

TEST_F(SwordSource, IsFoundByNameAbbreviationOrFormerNameInAnyCase)
{
    m_sword.add("NewName", {{"Gen 1:1", "а"}}, "Abbreviation=NN\nObsoletes=OldName\nObsoletes=Older\n");
    for (const char* name : {"NewName", "newname", "nn", "OLDNAME", "older"})
        EXPECT_EQ(buildSword(name).code, 0) << name;
}

TEST_F(SwordSource, NameGoesBeforeAbbreviation)
{
    m_sword.add("One", {{"Gen 1:1", "първа"}}, "Abbreviation=Two\n");
    m_sword.add("Two", {{"Gen 1:1", "втора"}});
    ASSERT_EQ(buildSword("two").code, 0);
    EXPECT_EQ(verse(0, 0, 0), "втора");
}

TEST_F(SwordSource, UnknownNameIsRefusedWithTheNamesThereAre)
{
    EXPECT_EQ(buildSword("X").err, "kedrin-module: no SWORD Bible is named \"X\" (installed: none)\n");
    m_sword.add("One", {{"Gen 1:1", "а"}});
    m_sword.add("Two", {{"Gen 1:1", "а"}});
    EXPECT_EQ(buildSword("X"),
              (Result{1, "", "kedrin-module: no SWORD Bible is named \"X\" (installed: One, Two)\n"}));
}

TEST_F(SwordSource, AmbiguousNameIsRefused)
{
    m_sword.add("One", {{"Gen 1:1", "а"}}, "Abbreviation=AB\n");
    m_sword.add("Two", {{"Gen 1:1", "а"}}, "Abbreviation=ab\n");
    EXPECT_EQ(buildSword("AB").err, "kedrin-module: several SWORD Bibles are named \"AB\": One, Two\n");
}

TEST_F(SwordSource, ComesWithoutNotesHeadingsAndLexicalMarks)
{
    EXPECT_EQ(textOf("<title>Глава</title><w lemma=\"strong:H0430\" morph=\"x:Y\">Бог</w> "
                     "<note n=\"1\">бележка</note><transChange type=\"added\">е</transChange> "
                     "<q who=\"Jesus\">любов</q>"),
              "Бог е любов");
}

TEST_F(SwordSource, WhatIsLeftOutIsCounted)
{
    m_sword.add("Made", {{"Gen 1:0", "<title>Глава</title> предговор"},
                         {"Gen 1:1", "а<note n=\"1\">б<note>в</note> <title>глава</title>г"},
                         {"Gen 1:2", "<title canonical=\"true\">д</title>е<speaker>ж</speaker><note/>"
                                     "<seg type=\"x-variant\" subType=\"x-1\">з</seg>"
                                     "<seg type=\"x-variant\" subType=\"x-2\">и</seg>"
                                     "<div eID=\"g\" type=\"book\"/> речник<note>к</note>"}});
    const Result result = buildSword("Made");
    ASSERT_EQ(result.code, 0) << result.err;
    const std::size_t begin = result.out.find("left out");
    EXPECT_EQ(result.out.substr(std::min(begin, result.out.size())),
              "left out      2 notes, first at Gen 1:1\n"
              "left out      3 titles, first at Gen 1\n"
              "left out      1 variant reading, first at Gen 1:2\n"
              "left out      2 texts outside the verses, first at Gen 1\n");
}

TEST_F(SwordSource, MarkersOfUsfmGoAndAreCounted)
{
    m_sword.add("Made", {{"Gen 1:1", "на \\nd <w>Господа</w><note>\\nd Бога\\+nd*</note>"}});
    const Result result = buildSword("Made");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "на Господа");
    EXPECT_EQ(reported(result, "kept"), "          1 text of an unknown marker, first at Gen 1:1");
}

TEST_F(SwordSource, KeepsCanonicalTitles)
{
    EXPECT_EQ(textOf("<title canonical=\"true\" type=\"psalm\">Псалом на Давида.</title>Господи!"),
              "Псалом на Давида. Господи!");
}

TEST_F(SwordSource, KeepsParagraphSignsOfTheTextButNotThoseOfMarkup)
{
    EXPECT_EQ(textOf("¶ И рече"), "¶ И рече");
    EXPECT_EQ(textOf("<milestone type=\"x-p\" marker=\"¶\"/>И рече"), "И рече");
}

TEST_F(SwordSource, EntitiesAreCharactersAndStoredEscaped)
{
    EXPECT_EQ(textOf("а &amp; &lt;б&gt;"), "а &amp; &lt;б&gt;");
}

TEST_F(SwordSource, NotesDoNotJoinWords)
{
    EXPECT_EQ(textOf("едно<note>бел.</note>две<note>бел.</note>, три (<note>бел.</note>четири)"),
              "едно две, три (четири)");
}

TEST_F(SwordSource, NoteBeforeAClosingMarkLeavesNoSpace)
{
    EXPECT_EQ(textOf("„Да бъде светлина.<note>а</note>“"), "„Да бъде светлина.“");
    EXPECT_EQ(textOf("said,<note>а</note>“Let”<note>а</note>and"), "said, “Let” and");
}

TEST_F(SwordSource, JoinedVersesHaveTheirTextOnce)
{
    m_sword.add("Made", {{"Gen 1:1", "два стиха"}, {"Gen 1:3", "край"}});
    m_sword.link("Made", "Gen 1:1", "Gen 1:2");
    const Result result = buildSword("Made");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "два стиха");
    EXPECT_EQ(verse(0, 0, 1), "");
    EXPECT_EQ(reported(result, "without text"), "  1 verse inside a chapter, first at Gen 1:2");
    EXPECT_EQ(reported(result, "joined"),
              "        1 range of verses, with the text in the first, first at Gen 1:1");
}

TEST_F(SwordSource, EmptyEntriesAreNotARange)
{
    for (const bool isCompressed : {false, true}) {
        m_sword.add("Made", {{"Job 1:1", "първи"}, {"Job 1:3", "трети"}}, "", "KJV", {"OSIS", isCompressed});
        const Result result = buildSword("Made");
        ASSERT_EQ(result.code, 0) << result.err;
        EXPECT_EQ(verse(0, 0, 0), "първи");
        EXPECT_EQ(verse(0, 0, 2), "трети");
        EXPECT_EQ(result.out.find("joined"), std::string::npos) << result.out;
    }
}

TEST_F(SwordSource, VerseThatBeginsInAPsalmTitleIsWhole)
{
    EXPECT_EQ(textOf("<div type=\"x-milestone\" subType=\"x-preverse\" sID=\"pv1\"/>"
                     "<title canonical=\"true\" type=\"psalm\">"
                     "<div type=\"x-milestone\" subType=\"x-preverse\" eID=\"pv1\"/>Псалом Давидов.</title>"
                     "<lg sID=\"gen2\"/><l sID=\"gen3\"/>Господи, кой ще живее…<l eID=\"gen3\"/>"
                     "<lg eID=\"gen2\"/>"),
              "Псалом Давидов. Господи, кой ще живее…");
}

TEST_F(SwordSource, EmphasisLeavesNoSigns)
{
    EXPECT_EQ(textOf("darkness <hi type=\"italic\">was</hi> upon"), "darkness was upon");
}

TEST_F(SwordSource, TextOfOneLetterIsText)
{
    EXPECT_EQ(textOf("О"), "О");
    EXPECT_EQ(textOf("О<note>бел.</note>Ти"), "О Ти");
}

TEST_F(SwordSource, PsalmTitleOfAChapterStandsBeforeItsFirstVerse)
{
    m_sword.add("Made", {{"Ps 3:0", "<title canonical=\"true\">Псалом "},
                         {"Ps 3:1", "Давидов.</title>Господи"},
                         {"Ps 4:0", "<title canonical=\"true\">Глас</title>"}});
    const Result result = buildSword("Made");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 2, 0), "Псалом Давидов. Господи");
    EXPECT_EQ(reported(result, "joined"), "        1 psalm title, put before its text, first at Ps 3");
    EXPECT_EQ(reported(result, "left out"), "      1 text outside the verses, first at Ps 4");
}

TEST_F(SwordSource, NoteOverTwoVersesIsLeftOutOfBoth)
{
    m_sword.add(
        "Made",
        {{"Gen 1:1", "а <note>б"}, {"Gen 1:3", "в</note> г"}, {"Gen 1:4", "д <note>е"}, {"Gen 1:5", "ж"}});
    const Result result = buildSword("Made");
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "а");
    EXPECT_EQ(verse(0, 0, 2), "г") << "behind an empty verse";
    EXPECT_EQ(verse(0, 0, 3), "д е") << "a note without an end";
    EXPECT_EQ(verse(0, 0, 4), "ж");
    EXPECT_EQ(reported(result, "left out"), "      1 note, first at Gen 1:1");
}

TEST_F(SwordSource, EveryMarkupKeepsItsText)
{
    const std::pair<const char*, const char*> entries[] = {
        {"OSIS", "а <w lemma=\"strong:H1\">б</w> <hi>в</hi><note>г</note>"},
        {"ThML", "а <sync type=\"Strongs\" value=\"H1\"/><i>б</i>\nв<note>г</note>"},
        {"GBF", "а<WH1> <FI>б<Fi> в<RF>г<Rf>"},
        {"TEI", "а <hi rend=\"italic\">б</hi> <etym>в</etym><note>г</note>"},
        {"Plaintext", "а б\nв"}};
    for (const auto& [markup, raw] : entries) {
        m_sword.add("Made", {{"Gen 1:1", raw}}, "", "KJV", {markup, false});
        ASSERT_EQ(buildSword("Made").code, 0) << markup;
        EXPECT_EQ(verse(0, 0, 0), "а б в") << markup;
    }
}

TEST_F(SwordSource, LettersOfAnyBibleAddUp)
{
    std::mt19937 random(3);
    for (const char* markup : {"OSIS", "ThML", "GBF", "TEI", "Plaintext"}) {
        build_test::MadeSword::Entries entries{{"Gen 1:31", "край"}};
        for (int verse = 0; verse <= 30; ++verse)
            entries.emplace_back("Gen 1:" + std::to_string(verse), build_test::randomEntry(random));
        m_sword.add("Made", entries, "", "KJV", {markup, true});
        const Result result = run({"build", "sword:Made", made(), "--substitute", "--verbose"});
        ASSERT_EQ(result.code, 0) << markup << ": " << result.err;
        EXPECT_NE(result.out.find(" letters and digits in the source\n"), std::string::npos) << result.out;
    }
}

TEST_F(SwordSource, IsCountedByItsOwnVersification)
{
    m_sword.add("Made", {{"Jonah 2:2", "а"}, {"Jonah 2:11", "б"}}, "", "Synodal");
    const Result result = buildSword("Made");
    EXPECT_EQ(reported(result, "numbering"), "     Synodal");
    const Kedrin::Tolvo::CBible bible(made());
    EXPECT_EQ(bible.toGlobal(Kedrin::Tolvo::CRef(0, 1, 10, false)).verse(), 9u);
}

TEST_F(SwordSource, InvalidUtf8IsRefusedLikeOtherCharacters)
{
    m_sword.add("Made", {{"Gen 1:1", "a\xFF\xFE"}});
    const Result result = buildSword("Made");
    EXPECT_EQ(result.code, 1);
    EXPECT_NE(result.err.find("U+FFFD REPLACEMENT CHARACTER"), std::string::npos) << result.err;
}

TEST_F(SwordSource, EmptyBibleHasNoBooks)
{
    m_sword.add("Made", {});
    EXPECT_EQ(buildSword("Made").err, "kedrin-module: the source contains no text\n");
}

} // namespace
