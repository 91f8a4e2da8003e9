// Which books, chapters and verses a module gets, and the limits of its files.

#include "build_fixture.h"
#include "prepare.h"

namespace {

using build_test::Result;
using Layout = build_test::Building;
using Limits = build_test::Building;

TEST_F(Layout, MissingVersesInsideAChapterAreEmptyOnes)
{
    const Result result = build("Gen\t1\t2\tб\nGen\t1\t5\tд\n");
    EXPECT_EQ(made("BibleStructure.csv"), "1 5\n");
    EXPECT_EQ(verse(0, 0, 0), "");
    EXPECT_EQ(verse(0, 0, 1), "б");
    EXPECT_EQ(verse(0, 0, 4), "д");
    EXPECT_EQ(reported(result, "without text"), "  3 verses inside chapters, first at Gen 1:1");
}

TEST_F(Layout, MissingChapterIsOneEmptyVerse)
{
    const Result result = build("Gen\t3\t1\tв\n");
    EXPECT_EQ(made("BibleStructure.csv"), "3 1 1 1\n");
    EXPECT_EQ(verse(0, 2, 0), "в");
    EXPECT_EQ(reported(result, "without text"),
              "  2 chapters inside books, each kept as one verse, first at Gen 1");
}

TEST_F(Layout, ChapterOfEmptyVersesInsideABookIsOneEmptyVerse)
{
    const Result result = build("Gen\t1\t1\tа\nGen\t2\t1\t\nGen\t2\t2\t \nGen\t3\t1\tв\n");
    EXPECT_EQ(made("BibleStructure.csv"), "3 1 1 1\n");
    EXPECT_EQ(reported(result, "without text"),
              "  1 chapter inside a book, kept as one verse, first at Gen 2");
}

TEST_F(Layout, EmptyVersesAtTheEndOfAChapterAreLeftOut)
{
    const Result result = build("Gen\t1\t1\tа\nGen\t1\t2\t\nGen\t1\t3\t\nGen\t2\t1\tб\n");
    EXPECT_EQ(made("BibleStructure.csv"), "2 1 1\n");
    EXPECT_EQ(reported(result, "left out"), "      without text at the end: 2 verses, 0 chapters, 0 books");
}

TEST_F(Layout, EmptyChaptersAtTheEndOfABookAreLeftOut)
{
    const Result result = build("Gen\t1\t1\tа\nGen\t2\t1\t\nGen\t3\t1\t\nGen\t3\t2\t\n");
    EXPECT_EQ(made("BibleStructure.csv"), "1 1\n");
    EXPECT_EQ(reported(result, "left out"), "      without text at the end: 0 verses, 2 chapters, 0 books");
}

TEST_F(Layout, BooksWithoutTextAreLeftOut)
{
    const Result result = build("Gen\t1\t1\t\nJude\t1\t1\tа\nRev\t1\t1\t\n");
    EXPECT_TRUE(made("BibleTitles.txt").starts_with("1 61\n"));
    EXPECT_EQ(reported(result, "left out"), "      without text at the end: 0 verses, 0 chapters, 2 books");
}

TEST_F(Layout, BooksThatTheGlobalNumberingLacksAreLeftOut)
{
    const Result result = build("PrMan\t1\t1\tа\nPrMan\t1\t2\tб\nJude\t1\t1\tв\n4Macc\t1\t1\tг\n");
    EXPECT_TRUE(made("BibleTitles.txt").starts_with("1 61\n"));
    EXPECT_NE(result.out.find("left out      PrMan: 2 verses, not in the global numbering\n"
                              "left out      4Macc: 1 verse, not in the global numbering\n"),
              std::string::npos);
}

TEST_F(Layout, SourceOfSuchBooksAloneIsRefused)
{
    EXPECT_EQ(refusal("PrMan\t1\t1\tа\n"),
              "kedrin-module: none of the source's books is in the global numbering\n");
}

TEST_F(Layout, SourceWithoutTextIsRefused)
{
    EXPECT_EQ(refusal("Gen\t1\t1\t\nGen\t2\t1\t \n"), "kedrin-module: the source contains no text\n");
}

TEST_F(Limits, Hold65534Verses)
{
    std::string lines;
    for (unsigned int number = 1; number <= 65534; ++number)
        lines += "Gen\t1\t" + std::to_string(number) + "\tа\n";
    ASSERT_EQ(build(lines).code, 0);
    const Kedrin::Tolvo::CBible bible(made());
    EXPECT_EQ(bible.versesCount(0, 0), 65534u);
    std::vector<Kedrin::Tolvo::CRef> hits;
    bible.search("\xE0", true, false, hits);
    EXPECT_EQ(hits.size(), 65534u);
}

TEST_F(Limits, RefuseOneVerseMore)
{
    EXPECT_EQ(refusal("Gen\t1\t65534\tа\nGen\t2\t1\tб\n"),
              "kedrin-module: Gen 2:1: the module would have more than 65534 verses\n");
    EXPECT_EQ(refusal("Gen\t65534\t65534\tа\n"),
              "kedrin-module: Gen 65534:2: the module would have more than 65534 verses\n");
}

TEST_F(Limits, HoldAVerseOf65535Bytes)
{
    std::string verse(65535, ' ');
    for (std::size_t i = 0; i < verse.size(); i += 2)
        verse[i] = 'a';
    ASSERT_EQ(build("Gen\t1\t1\t" + verse + "\n").code, 0);
    EXPECT_EQ(made("CompactText.bin"), "\xFF\xFF" + verse);
}

TEST_F(Limits, RefuseAVerseOfOneByteMoreAsItIsStored)
{
    const std::string message = "kedrin-module: Gen 1:2: the verse has ";
    std::string verse(65537, ' ');
    for (std::size_t i = 0; i < verse.size(); i += 2)
        verse[i] = 'a';
    EXPECT_EQ(refusal("Gen\t1\t1\tа\nGen\t1\t2\t" + verse + "\n"),
              message + "65537 bytes; the limit is 65535\n");
    EXPECT_EQ(refusal("Gen\t1\t1\tа\nGen\t1\t2\t" + std::string(13108, '&') + "\n"),
              message + "65540 bytes; the limit is 65535\n");
    EXPECT_EQ(build("Gen\t1\t1\tа\nGen\t1\t2\t" + std::string(13107, '&') + "\n").code, 0);
}

TEST_F(Limits, HoldTitlesOf255BytesAndNoMore)
{
    const std::string longest(255, 'T');
    EXPECT_EQ(build("Gen\t1\t1\tа\n", {"--title", longest}).code, 0);
    EXPECT_EQ(made("_Info_.txt"), longest + "\nMade\nMade\n");
    std::filesystem::remove_all(made());
    const std::pair<const char*, const char*> titles[] = {
        {"--title", "full title"}, {"--short", "short title"}, {"--abbr", "abbreviated title"}};
    for (const auto& [option, name] : titles) {
        EXPECT_EQ(refusal("Gen\t1\t1\tа\n", {option, longest + "T"}),
                  "kedrin-module: the " + std::string(name) + " has 256 bytes; the limit is 255\n");
        EXPECT_EQ(refusal("Gen\t1\t1\tа\n", {option, " "}),
                  "kedrin-module: the " + std::string(name) + " is empty\n");
    }
}

TEST(CopyrightLines, AreWrappedAtSpaces)
{
    const std::string word(99, 'w');
    EXPECT_EQ(Kedrin::ModTool::wrappedLines({word + ' ' + word + ' ' + word + ' ' + word, "second"}),
              (std::vector<std::string>{word + ' ' + word, word + ' ' + word, "second"}));
}

TEST(CopyrightLines, AreSplitWhereThereIsNoSpace)
{
    EXPECT_EQ(Kedrin::ModTool::wrappedLines({std::string(600, 'w')}),
              (std::vector<std::string>{std::string(255, 'w'), std::string(255, 'w'), std::string(90, 'w')}));
}

TEST(CopyrightLines, Of255BytesStayWhole)
{
    const std::string line = std::string(200, 'a') + ' ' + std::string(54, 'b');
    EXPECT_EQ(Kedrin::ModTool::wrappedLines({line}), std::vector<std::string>{line});
    EXPECT_EQ(Kedrin::ModTool::wrappedLines({line + "b"}),
              (std::vector<std::string>{std::string(200, 'a'), std::string(55, 'b')}));
    EXPECT_EQ(Kedrin::ModTool::wrappedLines({std::string(255, 'a') + " b"}),
              (std::vector<std::string>{std::string(255, 'a'), "b"}));
}

} // namespace
