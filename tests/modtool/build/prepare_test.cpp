#include "build_options.h"

#include "errors.h"
#include "prepare.h"
#include "thrown.h"
#include "verse_line_reader.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::messageOf;

namespace {

SourceBible source(const std::string& text)
{
    SourceBible bible = readVerseLines("f.tsv", "Gen\t1\t1\t" + text + "\nExod\t1\t1\tb\n");
    bible.bookTitles = {{"Genesis", "Gen.", ""}, {"", "", ""}};
    bible.info.fullTitle = bible.info.shortTitle = bible.info.abbreviatedTitle = "f";
    bible.info.copyright = {"Own"};
    return bible;
}

ModuleData prepared(const std::string& text, const BuildOptions& options, BuildReport& report)
{
    return prepareModule(source(text), options, report);
}

} // namespace

TEST(BuildOptions, IWithGraveIsAlwaysReplacedAndCounted)
{
    BuildReport report;
    const ModuleData module = prepared("\u045D \u0418\u0300", {}, report);
    EXPECT_EQ(toUtf8(module.verse(0)), "и И");
    ASSERT_EQ(report.replaced.size(), 2u);
    EXPECT_EQ(report.replaced[1].from, U'\u045D');
    EXPECT_EQ(report.replaced[1].replaced.count, 1u);
    EXPECT_EQ(report.replaced[1].firstPosition, "Gen 1:1");
}

TEST(BuildOptions, OtherCharactersAreRefusedInAListWithoutIWithGrave)
{
    BuildReport report;
    EXPECT_EQ(messageOf<CBuildError>([&] { prepared("\u045D \u00E9", {}, report); }),
              "the text contains characters that Windows-1251 lacks (--substitute replaces them):\n"
              "  U+00E9 LATIN SMALL LETTER E WITH ACUTE, 1 time, first at Gen 1:1");
}

TEST(BuildOptions, BooksAreCalledInBulgarianOrAsTheSourceDoes)
{
    BuildReport report;
    BuildOptions options;
    EXPECT_EQ(toUtf8(prepared("a", options, report).bookTitles[0].shortTitle), "Битие");
    options.sourceTitles = true;
    const ModuleData module = prepared("a", options, report);
    EXPECT_EQ(toUtf8(module.bookTitles[0].fullTitle), "Genesis");
    EXPECT_EQ(toUtf8(module.bookTitles[0].shortTitle), "Gen.");
    EXPECT_EQ(toUtf8(module.bookTitles[0].abbreviatedTitle), "Бит");
    EXPECT_EQ(toUtf8(module.bookTitles[1].shortTitle), "Изход");
}

TEST(BuildOptions, GivenCopyrightReplacesTheSources)
{
    BuildReport report;
    BuildOptions options;
    EXPECT_EQ(prepared("a", options, report).info.copyright, std::vector<std::string>{"Own"});
    options.copyright = {"Given", "too"};
    EXPECT_EQ(prepared("a", options, report).info.copyright, (std::vector<std::string>{"Given", "too"}));
}

TEST(BuildOptions, ReportTellsWhatTheReaderFound)
{
    BuildReport report;
    SourceBible bible = source("a");
    bible.findings.add(ReaderRule::note, "Gen 1:1");
    prepareModule(bible, {}, report);
    EXPECT_NE(report.text().find("\nleft out      1 note, first at Gen 1:1\n"), std::string::npos);
}
