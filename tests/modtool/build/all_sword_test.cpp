// `kedrin-module build --all-sword`: builds every installed SWORD Bible separately.

#include "build_fixture.h"
#include "made_sword.h"
#include "module_folder.h"

namespace {

namespace fs = std::filesystem;

using build_test::namesIn;
using build_test::Result;
using build_test::run;

class AllSword : public testing::Test
{
protected:
    Result buildAll(const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments{"build", "--all-sword", directory()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return run(arguments);
    }
    std::string directory() const { return m_folder.file("bibles"); }

    void addOne() const
    {
        m_sword.add("MadeOne", {{"Gen 1:1", "Бог"}, {"Gen 1:2", "рече"}}, "Description=Първа\n");
    }
    void addTwo(const std::string& text = "caf\u00E9") const
    {
        m_sword.add("MadeTwo", {{"John 1:1", text}}, "Description=Second\n");
    }
    void addGreek() const { m_sword.add("Greek", {{"John 1:1", "Ἐν ἀρχῇ ἦν ὁ λόγος"}}); }

    const test_support::TempFolder m_folder;
    const build_test::MadeSword m_sword;
};

constexpr const char* firstLine = "MadeOne: built, 1 book, 2 verses: Първа\n";
constexpr const char* secondLine = "MadeTwo: built, 1 book, 1 verse: Second\n";

TEST_F(AllSword, WithoutAnyWritesOnlyTheGlobalStructure)
{
    EXPECT_EQ(buildAll(), (Result{0, "no SWORD Bible is installed\n", ""}));
    EXPECT_EQ(namesIn(directory()), std::vector<std::string>{"BibleStructure.txt"});
}

TEST_F(AllSword, BuildsEachUnderItsNameInLowerCaseWithSubstitutes)
{
    addOne();
    addTwo();
    EXPECT_EQ(buildAll(), (Result{0, std::string(firstLine) + secondLine, ""}));
    EXPECT_EQ(namesIn(directory()), (std::vector<std::string>{"BibleStructure.txt", "madeone", "madetwo"}));
    const Kedrin::Tolvo::CBible bible(directory() + "/madetwo");
    EXPECT_EQ(bible[Kedrin::Tolvo::CRef(0, 0, 0, false)], "cafe");
}

TEST_F(AllSword, BuildsNothingThatIsUpToDate)
{
    addOne();
    addTwo();
    ASSERT_EQ(buildAll().code, 0);
    EXPECT_EQ(buildAll(), (Result{0, "MadeOne: up to date\nMadeTwo: up to date\n", ""}));
}

TEST_F(AllSword, BuildsAgainWhatHasOtherData)
{
    addOne();
    addTwo();
    ASSERT_EQ(buildAll().code, 0);
    addTwo("another and longer text");
    EXPECT_EQ(buildAll().out, std::string("MadeOne: up to date\n") + secondLine);
}

TEST_F(AllSword, BuildsAgainWhatHasAnotherConfiguration)
{
    addOne();
    ASSERT_EQ(buildAll().code, 0);
    std::ofstream(m_sword.path() + "/mods.d/MadeOne.conf", std::ios::app) << "Abbreviation=M1\n";
    EXPECT_EQ(buildAll().out, firstLine);
}

TEST_F(AllSword, BuildsAgainWhatLacksAFile)
{
    addOne();
    ASSERT_EQ(buildAll().code, 0);
    for (const char* name : {"WordPoint.bin", "_Info_.txt", ".source"}) {
        fs::remove(directory() + "/madeone/" + name);
        EXPECT_EQ(buildAll().out, firstLine) << name;
    }
}

TEST_F(AllSword, LeavesOutWhatWindows1251CannotHold)
{
    addGreek();
    addOne();
    const std::string leftOut = "Greek: skipped: 14 of 14 letters have no equivalent in Windows-1251\n";
    EXPECT_EQ(buildAll(), (Result{0, leftOut + firstLine, ""}));
    EXPECT_FALSE(fs::exists(directory() + "/greek"));
    EXPECT_EQ(buildAll(), (Result{0, leftOut + "MadeOne: up to date\n", ""}))
        << "known without reading it again";
}

TEST_F(AllSword, OneLetterInAHundredMayBeLost)
{
    const std::string letters(99, 'x');
    std::string words;
    for (char letter : letters)
        words += std::string(1, letter) + ' ';
    m_sword.add("Edge", {{"Gen 1:1", words + "λ"}});
    EXPECT_EQ(buildAll().out, "Edge: built, 1 book, 1 verse: Edge\n");
    m_sword.add("Edge", {{"Gen 1:1", words + "λλ"}});
    EXPECT_EQ(buildAll().out, "Edge: skipped: 2 of 101 letters have no equivalent in Windows-1251\n");
}

TEST_F(AllSword, BuildsWhatWasLeftOutWhenItChanges)
{
    addGreek();
    ASSERT_EQ(buildAll().code, 0);
    m_sword.add("Greek", {{"John 1:1", "In the beginning"}});
    EXPECT_EQ(buildAll().out, "Greek: built, 1 book, 1 verse: Greek\n");
    EXPECT_EQ(namesIn(directory()), (std::vector<std::string>{"BibleStructure.txt", "greek"}));
}

TEST_F(AllSword, ForgetsTheModuleOfWhatIsLeftOutNow)
{
    addGreek();
    m_sword.add("Greek", {{"John 1:1", "In the beginning"}});
    ASSERT_EQ(buildAll().code, 0);
    addGreek();
    EXPECT_TRUE(buildAll().out.starts_with("Greek: skipped: "));
    EXPECT_TRUE(fs::exists(directory() + "/greek/BibleTitles.txt"))
        << "a module is replaced by a complete one only";
}

TEST_F(AllSword, OneThatFailsDoesNotStopTheOthers)
{
    addOne();
    addTwo();
    m_folder.write("bibles/madeone/letter.txt", "dear reader");
    const Result result = buildAll();
    EXPECT_EQ(result, (Result{1, secondLine,
                              "kedrin-module: MadeOne: " + directory() +
                                  "/madeone: is not empty and contains no module, so it is not replaced\n"}));
}

TEST_F(AllSword, OneThatAnotherProcessBuildsIsSkipped)
{
    addOne();
    addTwo();
    const Kedrin::ModTool::CModuleFolder other(directory() + "/madeone");
    EXPECT_EQ(
        buildAll(),
        (Result{0, std::string("MadeOne: skipped: another build of it is running\n") + secondLine, ""}));
}

TEST_F(AllSword, QuietPrintsErrorsOnly)
{
    addOne();
    EXPECT_EQ(buildAll({"-q"}), (Result{0, "", ""}));
    EXPECT_TRUE(fs::exists(directory() + "/madeone"));
}

TEST_F(AllSword, FingerprintIsIgnoredByTheReader)
{
    addOne();
    ASSERT_EQ(buildAll().code, 0);
    EXPECT_EQ(namesIn(directory() + "/madeone").size(), 11u);
    EXPECT_TRUE(fs::exists(directory() + "/madeone/.source"));
}

TEST_F(AllSword, DirectoryThatCannotBeMadeIsAnError)
{
    const std::string file = m_folder.write("file", "");
    EXPECT_EQ(run({"build", "--all-sword", file + "/bibles"}),
              (Result{1, "", "kedrin-module: " + file + "/bibles: cannot be written (Not a directory)\n"}));
}

} // namespace
