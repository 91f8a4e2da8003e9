// The files of a build, byte by byte, and all its output.

#include "build_fixture.h"
#include "module_files.h"

namespace {

using build_test::filesOf;
using build_test::namesIn;
using build_test::Result;
using test_support::cp1251;

using BuiltFiles = build_test::Building;

constexpr std::string_view tiny = "Gen\t1\t1\tБог & <земя>.\n"
                                  "Gen\t1\t2\tбог рече: бог\n"
                                  "Jude\t1\t2\tАЗ-1\n";

template <std::size_t size>
std::string raw(const char (&bytes)[size])
{
    return std::string(bytes, size - 1);
}

TEST_F(BuiltFiles, AreTheTenOfAModuleToTheByte)
{
    ASSERT_EQ(build(tiny, {"--title", "Пълно име", "--short", "Кратко", "--abbr", "Кр"}).code, 0);
    const std::map<std::string, std::string> expected = {
        {"BibleTitles.txt", cp1251("2 0 61\n"
                                   "Първа книга Моисеева - Битие\nПослание на Юда\n"
                                   "Битие\nЮда\n"
                                   "Бит\nЮда\n")},
        {"BibleStructure.csv", "1 2\n1 2\n"},
        {"_Diff_.txt", ""},
        {"CompactText.bin", raw("\x17\0") + cp1251("Бог &amp; &lt;земя&gt;.") + raw("\x0D\0") +
                                cp1251("бог рече: бог") + raw("\0\0\x04\0") + cp1251("АЗ-1")},
        {"CompactPoint.bin", raw("\0\0\0\0\x19\0\0\0\x28\0\0\0\x2A\0\0\0")},
        {"WordList.txt", cp1251("1\r\nАЗ\r\nбог\r\nземя\r\nрече\r\n")},
        {"WordPoint.bin", raw("\0\0\0\0\x03\0\0\0\x07\0\0\0\x0C\0\0\0\x12\0\0\0")},
        {"Conc.bin", raw("\x01\0\x04\0\x01\0\x04\0\x02\0\x01\0\x02\0\x01\0\x01\0\x01\0\x02\0")},
        {"ConcP.bin", raw("\0\0\0\0\x02\0\0\0\x04\0\0\0\x07\0\0\0\x09\0\0\0")},
        {"_Info_.txt", cp1251("Пълно име\nКратко\nКр\n")},
    };
    EXPECT_EQ(filesOf(made()), expected);
}

TEST_F(BuiltFiles, AreWrittenWithTheGlobalStructureAndNothingElse)
{
    ASSERT_EQ(build(tiny).code, 0);
    EXPECT_EQ(namesIn(modules()), (std::vector<std::string>{"BibleStructure.txt", "made"}));
}

TEST_F(BuiltFiles, HaveAGlobalStructureThatTheEngineReads)
{
    ASSERT_EQ(build(tiny).code, 0);
    const Kedrin::Tolvo::CBibleStructure common((modules() + "/BibleStructure.txt").c_str(), 77);
    EXPECT_EQ(common.chaptersCount(0), 50u);
    EXPECT_EQ(common.versesCount(0, 0), 31u);
    EXPECT_EQ(common.versesCount(18, 118), 176u); // Ps 119
    EXPECT_EQ(common.chaptersCount(48), 7u);      // 3Macc, the last but one of the Old Testament
    EXPECT_EQ(common.versesCount(31, 1), 10u);    // Jonah 2 as in the King James Version
    EXPECT_EQ(common.chaptersCount(76), 22u);     // Rev
    EXPECT_EQ(common.versesCount(76, 21), 21u);
}

TEST_F(BuiltFiles, AreTheSameEachTime)
{
    ASSERT_EQ(build(tiny).code, 0);
    const auto first = filesOf(made());
    ASSERT_EQ(build(tiny).code, 0);
    EXPECT_EQ(filesOf(made()), first);
}

TEST_F(BuiltFiles, AreReportedInFull)
{
    const Result result = build("Gen\t1\t1\tБог\n"
                                "Gen\t1\t3\tи land\u0253\n"
                                "Gen\t1\t4\t\n"
                                "Gen\t3\t1\tÆon and\u200B æon\n"
                                "Gen\t4\t1\t\n"
                                "Jonah\t1\t1\t \n"
                                "PrMan\t1\t1\tа\n"
                                "Jude\t1\t1\tа\n",
                                {"--substitute", "--title", "Пробен"});
    EXPECT_EQ(
        result,
        (Result{0,
                "left out      PrMan: 1 verse, not in the global numbering\n"
                "module        " +
                    made() + "\n" +
                    "title         Пробен\n"
                    "contains      2 books, 4 chapters, 6 verses\n"
                    "words         6 distinct, 7 in total\n"
                    "numbering     KJV (best match)\n"
                    "              6 of 6 verses map correctly both ways (6 without any record)\n"
                    "left out      without text at the end: 1 verse, 1 chapter, 1 book\n"
                    "without text  1 verse inside a chapter, first at Gen 1:2\n"
                    "without text  1 chapter inside a book, kept as one verse, first at Gen 2\n"
                    "replaced      U+00C6 LATIN CAPITAL LETTER AE with \"Ae\", 1 time, first at Gen 3:1\n"
                    "replaced      U+00E6 LATIN SMALL LETTER AE with \"ae\", 1 time, first at Gen 3:1\n"
                    "replaced      U+0253 LATIN SMALL LETTER B WITH HOOK with \"?\", 1 time, first at Gen "
                    "1:3\n"
                    "replaced      U+200B ZERO WIDTH SPACE removed, 1 time, first at Gen 3:1\n",
                ""}));
}

} // namespace
