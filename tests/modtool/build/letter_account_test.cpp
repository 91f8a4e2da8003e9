// The account of the letters of a source after it is built.

#include "build.h"
#include "build_fixture.h"
#include "errors.h"
#include "thrown.h"
#include "verse_line_reader.h"

#include <fstream>

using namespace Kedrin::ModTool;
using build_test::Building;
using test_support::messageOf;

namespace {

class LetterAccounts : public Building
{
protected:
    /// The last lines of the report, from the account on.
    std::string account(std::string_view verseLines, std::vector<std::string> options = {}) const
    {
        options.emplace_back("--verbose");
        const std::string out = build(verseLines, options).out;
        const std::size_t begin = out.find("letters ");
        return begin == std::string::npos ? "" : out.substr(begin);
    }

    BuildReport built(const SourceBible& source) const
    {
        CTerminalProgress progress(nullptr);
        return buildModule(source, made(), {}, "", progress);
    }
};

} // namespace

TEST_F(LetterAccounts, IsPrintedWhereItIsAskedFor)
{
    EXPECT_EQ(account("Gen\t1\t1\tone 2\n"), "letters       4 letters and digits in the source\n"
                                             "              4 in the verses of the module\n");
    EXPECT_EQ(build("Gen\t1\t1\tone 2\n").out.find("letters "), std::string::npos);
}

TEST_F(LetterAccounts, NamesWhatIsNotInTheVerses)
{
    EXPECT_EQ(account("# title: Made\nGen\t1\t1\tone\nPrMan\t1\t1\ttwo2\n"),
              "letters       16 letters and digits in the source\n"
              "              3 in the verses of the module\n"
              "              9 in titles and metadata of the source\n"
              "              4 in PrMan, not in the global numbering\n");
}

TEST_F(LetterAccounts, ReplacedAndComposedCharactersChangeIt)
{
    EXPECT_EQ(account("Gen\t1\t1\t\u00E6 \u05D0 \u1112\u1161 \u0438\u0306\n", {"--substitute"}),
              "letters       5 letters and digits in the source\n"
              "              -2 more or fewer because of replaced characters\n"
              "              3 in the verses of the module\n");
}

SourceBible ofOneVerse()
{
    SourceBible source = readVerseLines("f.vpl", "Gen\t1\t1\tone\n");
    source.info.fullTitle = source.info.shortTitle = source.info.abbreviatedTitle = "f";
    return source;
}

TEST_F(LetterAccounts, TextThatDoesNotAddUpIsRefusedAndNothingIsWritten)
{
    SourceBible source = ofOneVerse();
    ++*source.letters;
    EXPECT_EQ(messageOf<CBuildError>([&] { built(source); }),
              "the source has 4 letters and digits, but 3 are accounted for; this is a bug in "
              "kedrin-module, please report it");
    EXPECT_FALSE(std::ifstream(made() + "/BibleTitles.txt").is_open());
    --*source.letters;
    EXPECT_EQ(built(source).letters.module, 3u);
}

TEST_F(LetterAccounts, SourceThatWasNotCountedHasNone)
{
    SourceBible source = ofOneVerse();
    source.letters.reset();
    EXPECT_EQ(built(source).letterAccount(), "");
}
