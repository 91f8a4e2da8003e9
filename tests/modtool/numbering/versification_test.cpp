// The versification chosen for a text, and the positions of its verses in the global numbering.

#include "versification.h"

#include "build_fixture.h"
#include "errors.h"
#include "global_books.h"
#include "thrown.h"

namespace {

using namespace Kedrin::ModTool;
using build_test::Result;
using Kedrin::Tolvo::CRef;

ModuleBook book(const std::string& osis, std::vector<unsigned int> versesCount)
{
    return {osis, globalIDOf(osis).value(), std::move(versesCount)};
}

TEST(Versification, NamesBeginWithKjv)
{
    const std::vector<std::string> names = CVersification::names();
    ASSERT_GE(names.size(), 10u);
    EXPECT_EQ(names.front(), "KJV");
    EXPECT_TRUE(std::is_sorted(names.begin() + 1, names.end()));
}

TEST(Versification, UnknownNameThrowsWithTheListOfNames)
{
    const std::string message =
        test_support::messageOf<CBuildError>([] { CVersification versification("Vulgata"); });
    EXPECT_TRUE(message.starts_with("unknown versification \"Vulgata\" (known: KJV, ")) << message;
    EXPECT_NE(message.find(", Synodal"), std::string::npos);
    EXPECT_TRUE(message.ends_with(")"));
}

TEST(Versification, CountsTheChaptersThatAgree)
{
    const CVersification kjv("KJV");
    EXPECT_EQ(kjv.agreement({book("Jonah", {17, 10, 10, 11})}), 4u);
    EXPECT_EQ(kjv.agreement({book("Jonah", {16, 11, 10, 11, 1})}), 2u);
    EXPECT_EQ(kjv.agreement({book("Tob", {22, 14})}), 0u) << "a book that the system lacks";
    EXPECT_EQ(CVersification("Synodal").agreement({book("Jonah", {16, 11, 10, 11})}), 4u);
}

TEST(Versification, BestIsTheOneWithMostEqualChapters)
{
    EXPECT_EQ(CVersification::bestFor({book("Jonah", {17, 10, 10, 11})}).name(), "KJV");
    EXPECT_EQ(
        CVersification::bestFor({book("Ps", {6, 12, 9, 9, 13, 11, 18, 10, 39, 7, 9, 6, 7, 5, 11})}).name(),
        "Synodal");
    EXPECT_EQ(CVersification::bestFor({book("Gen", {1})}).name(), "KJV") << "none agrees: the first";
}

TEST(Versification, OfTheGlobalNumberingChangesNothing)
{
    const ModuleBook psalms = book("Ps", {});
    EXPECT_EQ(CVersification("KJV").toGlobal(psalms, {118, 175}), (ChapterVerse{118, 175}));
    EXPECT_EQ(CVersification("Synodal").toGlobal(book("Tob", {}), {0, 0}), (ChapterVerse{0, 0}));
}

TEST(Versification, OfASynodalTextLeadsToTheKjvs)
{
    const CVersification synodal("Synodal");
    EXPECT_EQ(synodal.toGlobal(book("Ps", {}), {21, 1}), (ChapterVerse{22, 1}));
    EXPECT_EQ(synodal.toGlobal(book("Ps", {}), {118, 0}), (ChapterVerse{119, 0}));
    EXPECT_EQ(synodal.toGlobal(book("Jonah", {}), {1, 0}), (ChapterVerse{0, 16}));
    EXPECT_EQ(synodal.toGlobal(book("Jonah", {}), {1, 1}), (ChapterVerse{1, 0}));
    EXPECT_EQ(synodal.toGlobal(book("Jonah", {}), {1, 10}), (ChapterVerse{1, 9}));
}

TEST(Versification, VersesThatTheGlobalNumberingLacksHaveNoPosition)
{
    EXPECT_EQ(CVersification("KJV").toGlobal(book("Gen", {}), {0, 31}), std::nullopt);
    EXPECT_EQ(CVersification("KJV").toGlobal(book("Gen", {}), {50, 0}), std::nullopt);
    EXPECT_EQ(CVersification("Synodal").toGlobal(book("Ps", {}), {150, 0}), std::nullopt) << "Ps 151";
}

TEST(Versification, BookThatTheSystemLacksKeepsItsNumbers)
{
    EXPECT_EQ(CVersification("KJV").toGlobal(book("Tob", {}), {0, 0}), (ChapterVerse{0, 0}));
    EXPECT_EQ(CVersification("Luther").toGlobal(book("3Macc", {}), {0, 0}), (ChapterVerse{0, 0}));
}

/// operator== of CRef compares differently.
bool isAt(const CRef& ref, unsigned int bookID, unsigned int chapter, unsigned int verse)
{
    return ref.bookID() == bookID && ref.chapter() == chapter && ref.verse() == verse;
}

class Differences : public build_test::Building
{
protected:
    /// Verse lines of one book with the given numbers of verses per chapter.
    static std::string lines(const std::string& osis, const std::vector<unsigned int>& versesCount)
    {
        std::string text;
        for (std::size_t chapter = 1; chapter <= versesCount.size(); ++chapter)
            for (unsigned int number = 1; number <= versesCount[chapter - 1]; ++number)
                text += osis + '\t' + std::to_string(chapter) + '\t' + std::to_string(number) + "\tдума\n";
        return text;
    }
    const std::string m_synodalJonah = lines("Jonah", {16, 11, 10, 11});
};

TEST_F(Differences, OfASynodalJonahShiftItsSecondChapterBothWays)
{
    const Result result = build(lines("Gen", {31, 25}) + m_synodalJonah, {"--versification", "Synodal"});
    EXPECT_EQ(result.code, 0);
    EXPECT_NE(result.out.find("103 of 104 verses map correctly both ways (93 without any record)"),
              std::string::npos)
        << result.out;
    const Kedrin::Tolvo::CBible bible(made());
    for (unsigned int verse = 1; verse < 11; ++verse) {
        EXPECT_TRUE(isAt(bible.toGlobal(CRef(1, 1, verse, false)), 31, 1, verse - 1)) << verse;
        EXPECT_TRUE(isAt(bible.toLocal(CRef(31, 1, verse - 1, true)), 1, 1, verse)) << verse;
    }
    EXPECT_EQ(bible.toLocal(CRef(0, 1, 3, true)).verse(), 3u) << "Gen 2 stays";
    EXPECT_EQ(bible.toGlobal(CRef(0, 1, 3, false)).verse(), 3u);
    EXPECT_EQ(bible.toGlobal(CRef(1, 2, 3, false)).verse(), 3u);
}

TEST_F(Differences, OfASynodalJonahAreFoundWithoutTheName)
{
    const Result result = build(m_synodalJonah);
    EXPECT_TRUE(reported(result, "numbering").ends_with(" (best match)"));
    EXPECT_NE(result.out.find("47 of 48 verses map correctly both ways (37 without any record)"),
              std::string::npos);
}

TEST_F(Differences, NameOfTheVersificationIsObeyed)
{
    const Result result = build(m_synodalJonah, {"--versification", "KJV"});
    EXPECT_EQ(reported(result, "numbering"), "     KJV");
    EXPECT_EQ(made("_Diff_.txt"), "");
    EXPECT_NE(result.out.find("1 verse has no position in the global numbering"), std::string::npos)
        << "Jonah 2:11";
}

TEST_F(Differences, UnknownVersificationIsRefused)
{
    EXPECT_TRUE(refusal(m_synodalJonah, {"--versification", "Vulgata"})
                    .starts_with("kedrin-module: unknown versification \"Vulgata\" (known: KJV, "));
}

TEST_F(Differences, AreNoneForANewTestamentWhoseBooksHaveOtherNumbersHere)
{
    const Result result = build(lines("John", {51, 25}) + lines("Jude", {25}) + lines("Rom", {32, 29}));
    EXPECT_TRUE(made("BibleTitles.txt").starts_with("3 53 61 62\n"));
    EXPECT_EQ(made("_Diff_.txt"), "");
    EXPECT_NE(result.out.find("162 of 162 verses map correctly both ways (162 without any record)"),
              std::string::npos);
    const Kedrin::Tolvo::CBible bible(made());
    EXPECT_TRUE(isAt(bible.toGlobal(CRef(2, 1, 28, false)), 62, 1, 28));
    EXPECT_TRUE(isAt(bible.toLocal(CRef(62, 1, 28, true)), 2, 1, 28));
}

} // namespace
