// The command line of `kedrin-module build`: arguments, exit codes, output streams.

#include "build_fixture.h"

namespace {

using build_test::Result;
using build_test::run;

class BuildCommand : public build_test::Building
{
protected:
    static constexpr std::string_view verses = "Gen\t1\t1\tБог\n";
    static Result usage(const std::string& message)
    {
        return {2, "", "kedrin-module: " + message + "\nkedrin-module: try kedrin-module --help\n"};
    }
};

TEST_F(BuildCommand, NeedsASourceAndAFolder)
{
    const Result wrong = usage("build requires SOURCE and MODULE-FOLDER, or --all-sword DIR");
    EXPECT_EQ(run({"build"}), wrong);
    EXPECT_EQ(run({"build", "file.vpl"}), wrong);
}

TEST_F(BuildCommand, AllSwordGoesAlone)
{
    const Result wrong = usage("--all-sword can be combined only with -q");
    EXPECT_EQ(run({"build", "--all-sword", modules(), "file.vpl", "folder"}), wrong);
    for (const char* option : {"--title", "--short", "--abbr", "--versification"})
        EXPECT_EQ(run({"build", "--all-sword", modules(), option, "x"}), wrong) << option;
    EXPECT_EQ(run({"build", "--all-sword", modules(), "--substitute"}), wrong);
}

TEST_F(BuildCommand, WrongArgumentsAreUsageErrors)
{
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{},
                                               {"bild"},
                                               {"build", "a", "b", "c"},
                                               {"build", "a", "b", "--no-such-option"},
                                               {"build", "a", "b", "--title"}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with("kedrin-module: ")) << result.err;
        EXPECT_TRUE(result.err.ends_with("\nkedrin-module: try kedrin-module --help\n")) << result.err;
    }
}

TEST_F(BuildCommand, HelpIsNotAnError)
{
    const Result whole = run({"--help"});
    EXPECT_EQ(whole.code, 0);
    EXPECT_NE(whole.out.find("build"), std::string::npos);
    const Result command = run({"build", "--help"});
    EXPECT_EQ(command.code, 0);
    for (const char* word : {"SOURCE", "MODULE-FOLDER", "--all-sword", "--substitute", "--title", "--short",
                             "--abbr", "--versification", "-q,--quiet"})
        EXPECT_NE(command.out.find(word), std::string::npos) << word;
    EXPECT_EQ(command.err, "");
}

TEST_F(BuildCommand, MisspeltCommandsAndOptionsAreAnsweredWithThoseLikeThem)
{
    EXPECT_EQ(run({"bild"}), usage("unknown command \"bild\" (did you mean build?)"));
    EXPECT_EQ(run({"shwo", "m"}), usage("unknown command \"shwo\" (did you mean show?)"));
    EXPECT_EQ(run({"xyzzy"}), usage("unknown command \"xyzzy\""));
    EXPECT_EQ(run({"search", "m", "a", "--cuont"}),
              usage("unexpected argument: --cuont (did you mean --count?)"));
    EXPECT_EQ(run({"build", "a", "b", "--titel=x"}),
              usage("unexpected argument: --titel=x (did you mean --title?)"));
}

TEST_F(BuildCommand, HelpAsACommandIsTheSame)
{
    EXPECT_EQ(run({"help"}), run({"--help"}));
    EXPECT_EQ(run({"help", "show"}), run({"show", "--help"}));
    EXPECT_EQ(run({"help", "shwo"}), usage("unknown command \"shwo\" (did you mean show?)"));
    EXPECT_NE(run({"help"}).out.find("\nkedrin-module help COMMAND explains a command.\n"),
              std::string::npos);
}

TEST_F(BuildCommand, VersionIsOneLine)
{
    EXPECT_EQ(run({"--version"}), (Result{0, "kedrin-module 0.3-betha\n", ""}));
}

TEST_F(BuildCommand, PrintsItsReportOnStandardOutput)
{
    const Result result = build(verses);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(result.out.starts_with("module        " + made() + "\ntitle         Made\n")) << result.out;
}

TEST_F(BuildCommand, QuietPrintsNothing)
{
    EXPECT_EQ(build(verses, {"-q"}), (Result{0, "", ""}));
    EXPECT_EQ(build(verses, {"--quiet"}), (Result{0, "", ""}));
    EXPECT_EQ(verse(0, 0, 0), "Бог");
}

TEST_F(BuildCommand, QuietStillPrintsErrors)
{
    EXPECT_EQ(build("", {"-q"}),
              (Result{1, "", "kedrin-module: " + sourceName() + ": contains no verses\n"}));
}

TEST_F(BuildCommand, SourcePrintsNoControlCharacters)
{
    const std::string unknown = m_folder.write("a.txt", "G\x1B[31men\t1\t1\ta\n");
    EXPECT_EQ(run({"build", unknown, made()}).err,
              "kedrin-module: " + unknown + ":1: \"G\\x1B[31men\" is not an OSIS book id\n");
    const std::string column =
        m_folder.write("b.csv", "i\x1B]0\u009Bd;book;chapter;verse;text\n1;Gen;1;1;a\n");
    EXPECT_NE(run({"build", column, made()}).out.find("\"i\\x1B]0\\x9Bd\" (left out)"), std::string::npos);
}

TEST_F(BuildCommand, TitlesComeFromTheOptions)
{
    ASSERT_EQ(build(verses, {"--title", "Full", "--short", "Short", "--abbr", "Sh"}).code, 0);
    EXPECT_EQ(made("_Info_.txt"), "Full\nShort\nSh\n");
}

/// The command line and file names may contain any bytes.
TEST_F(BuildCommand, InvalidUtf8OfTitlesBecomesQuestionMarks)
{
    m_folder.write("\xD0"
                   "A.vpl",
                   verses);
    ASSERT_EQ(run({"build", "-q",
                   m_folder.file("\xD0"
                                 "A.vpl"),
                   made(), "--abbr", "B\xFF"})
                  .code,
              0);
    EXPECT_EQ(made("_Info_.txt"), "?A\n?A\nB?\n");
}

TEST_F(BuildCommand, DrawsABarOnATerminalAndErasesIt)
{
    m_folder.write("Made.vpl", verses);
    std::ostringstream terminal;
    EXPECT_EQ(run({"build", sourceName(), made()}, &terminal).code, 0);
    const std::string drawn = terminal.str();
    EXPECT_NE(drawn.find("\r\033[K[------------------------------]   0 % preparing"), std::string::npos);
    EXPECT_NE(drawn.find("[##############################] 100 % "), std::string::npos);
    EXPECT_TRUE(drawn.ends_with("\r\033[K"));
}

TEST_F(BuildCommand, ErasesTheBarBeforeAnError)
{
    m_folder.write("Made.vpl", "Gen\t1\t1\tæ\n");
    std::ostringstream terminal;
    EXPECT_EQ(run({"build", sourceName(), made()}, &terminal).code, 1);
    EXPECT_TRUE(terminal.str().ends_with("\r\033[K"));
}

TEST_F(BuildCommand, DrawsNoBarWhenQuiet)
{
    m_folder.write("Made.vpl", verses);
    std::ostringstream terminal;
    EXPECT_EQ(run({"build", "-q", sourceName(), made()}, &terminal).code, 0);
    EXPECT_EQ(terminal.str(), "");
}

} // namespace
