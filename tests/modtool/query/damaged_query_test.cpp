#include "query_fixture.h"

#include "module_search.h"
#include "module_words.h"
#include "stored_markup.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

using namespace query_test;
using namespace Kedrin;
using test_support::ModuleFiles;

namespace {

/// A valid module with one defect.
class Damaged : public testing::Test
{
protected:
    std::string spoiled(const std::function<void(std::map<std::string, std::string>&)>& spoil) const
    {
        ModuleFiles files = test_support::smallModule();
        spoil(files.bytes);
        return m_modules.add("m", files);
    }

    Modules m_modules;
};

const std::vector<std::vector<std::string>> allCommands = {{"show", "", "Gen"},
                                                           {"search", "", "Бог"},
                                                           {"search", "", "Бог", "--whole-word"},
                                                           {"info", ""},
                                                           {"words", "", "--counts"}};

} // namespace

TEST_F(Damaged, MissingFolder)
{
    for (std::vector<std::string> command : allCommands) {
        command[1] = "/nowhere";
        const Result result = run(command);
        EXPECT_EQ(result.code, 3);
        EXPECT_EQ(result.err,
                  command[0] == "words"
                      ? "kedrin-module: /nowhere: the words cannot be read: CWordList::CWordList(): error "
                        "opening file /nowhere/WordList.txt\n"
                      : "kedrin-module: /nowhere: is not a module folder\n");
    }
}

TEST_F(Damaged, MissingFileIsNamed)
{
    const std::string path = spoiled([](auto& bytes) { bytes.erase("_Diff_.txt"); });
    EXPECT_EQ(run({"show", path, "Gen 1"}),
              (Result{3, "",
                      "kedrin-module: " + path +
                          ": the module cannot be read: CDiff::CDiff(): error opening file " + path +
                          "/_Diff_.txt\n"}));
}

TEST_F(Damaged, FileThatHasNoSizeIsNamed)
{
    const std::string path = spoiled([](auto& bytes) { bytes.erase("_Info_.txt"); });
    EXPECT_EQ(run({"info", path}).code, 0) << "a module needs no such file";
    std::filesystem::create_symlink("_Info_.txt", path + "/_Info_.txt");
    EXPECT_EQ(run({"info", path}),
              (Result{3, "",
                      "kedrin-module: " + path +
                          "/_Info_.txt: cannot be read (Too many levels of symbolic links)\n"}));
}

TEST_F(Damaged, TruncatedText)
{
    const std::string path = spoiled([](auto& bytes) { bytes["CompactText.bin"].resize(20); });
    const std::string message =
        "kedrin-module: " + path + ": the verses cannot be read: CBibleText::operator [](): I/O error\n";
    EXPECT_EQ(run({"show", path, "Gen 2"}), (Result{3, "", message}));
    EXPECT_EQ(run({"search", path, "Бог"}), (Result{3, "", message}));
    EXPECT_EQ(run({"info", path}), (Result{3, "", message}));
    EXPECT_EQ(run({"diff", path, path}), (Result{3, "", message}));
    EXPECT_EQ(run({"show", path, "Gen 1:1"}).code, 0);
}

TEST_F(Damaged, MoreVersesThanRecords)
{
    const std::string path = spoiled([](auto& bytes) { bytes["BibleStructure.csv"] = "1 4000000000 1 1"; });
    EXPECT_EQ(
        run({"show", path, "Gen"}),
        (Result{
            3, "",
            "kedrin-module: " + path +
                ": BibleStructure.csv counts 4000000001 verses, but CompactPoint.bin has records for 4\n"}));
}

TEST_F(Damaged, BookThatTheGlobalNumberingLacks)
{
    const std::string path = spoiled([](auto& bytes) { bytes["BibleTitles.txt"].replace(0, 5, "2 0 77"); });
    EXPECT_EQ(run({"info", path}).err,
              "kedrin-module: " + path + ": book 2 has the global number 77; the last is 76\n");
}

TEST_F(Damaged, ConcordanceThatEndsInsideARecord)
{
    const std::string path = spoiled([](auto& bytes) { bytes["Conc.bin"].pop_back(); });
    EXPECT_EQ(run({"search", path, "рече", "--whole-word"}),
              (Result{3, "", "kedrin-module: " + path + "/Conc.bin: ends in the middle of a record\n"}));
    EXPECT_EQ(run({"words", path}).code, 3);
}

TEST_F(Damaged, ConcordanceThatEndsBetweenRecords)
{
    const std::string path = spoiled([](auto& bytes) { bytes["Conc.bin"].resize(14); });
    EXPECT_EQ(
        run({"search", path, "рече", "--whole-word"}).err,
        "kedrin-module: " + path +
            ": the verses of the word рече cannot be read: CFileVector::operator [](): recordIndex out of "
            "range\n");
}

/// What the engine's own lookup would end the program for.
TEST_F(Damaged, ConcordanceCutInsideARecordWhileItIsOpen)
{
    const std::string path = spoiled([](auto&) {});
    const ModTool::CModuleWords words(path);
    std::filesystem::resize_file(path + "/Conc.bin", 1);
    try {
        words.versesOf(0);
        FAIL() << "not refused";
    } catch (const ModTool::CModuleError& ex) {
        EXPECT_EQ(ex.what(), path + ": the verses of the word " + ModTool::plainLine(words.list()[0]) +
                                 " cannot be read: CFileVector::operator [](): IO error");
    }
}

TEST_F(Damaged, WordInAVerseThatDoesNotExist)
{
    const std::string path = spoiled([](auto& bytes) { bytes["Conc.bin"][2] = '\x09'; });
    EXPECT_EQ(run({"search", path, "бог", "--whole-word"}).err,
              "kedrin-module: " + path + ": the concordance puts the word \"бог\" in verse 9 of 4\n");
}

TEST_F(Damaged, EveryFileCutAtEveryLengthEndsWithAnAnswerOrAnError)
{
    const ModuleFiles whole = test_support::smallModule();
    const std::string path = m_modules.add("m", whole);
    for (const auto& [name, content] : whole.bytes) {
        for (std::size_t length = 0; length < content.size(); ++length) {
            std::filesystem::resize_file(path + '/' + name, length);
            for (const std::size_t i : {0u, 2u, 3u}) { // together these read all files completely
                std::vector<std::string> command = allCommands[i];
                command[1] = path;
                const Result result = run(command);
                EXPECT_TRUE(result.code == 0 || result.code == 1 || result.code == 3)
                    << name << ' ' << length;
                EXPECT_EQ(result.code == 3, result.err.starts_with("kedrin-module: " + path))
                    << name << ' ' << length << ' ' << command[0] << ' ' << result.err;
            }
            m_modules.add("m", {{{name, content}}});
        }
    }
}

/// Checks that both searches find the same verses, in the same order, for every text of one and two letters
/// of the module.
TEST(Search, AgreesWithTheEngine)
{
    using namespace ModTool;
    const Modules modules;
    const std::string path = modules.add("bg", bulgarianModule());
    const Tolvo::CBible engine(path);
    const CModuleReader module(path);
    const std::string letters = test_support::cp1251("абгдежинорстюяБГИ <>;:.").append(1, '\0');
    std::vector<std::string> texts = {"", test_support::cp1251("господ"), test_support::cp1251("деня")};
    for (const char a : letters)
        for (const char b : letters)
            texts.push_back(std::string{a, b});
    for (const std::string& text : texts)
        for (const SearchMode mode : {SearchMode::part, SearchMode::partByCase, SearchMode::wholeWord}) {
            std::vector<Tolvo::CRef> expected;
            engine.search(text, mode == SearchMode::wholeWord, mode == SearchMode::partByCase, expected);
            const std::vector<Tolvo::CRef> hits = searchModule(module, text, mode);
            ASSERT_EQ(hits.size(), expected.size()) << text;
            for (std::size_t i = 0; i < hits.size(); ++i) {
                const GlobalPosition position = module.globalPosition(hits[i]);
                EXPECT_EQ(position.book, expected[i].bookID());
                EXPECT_EQ(static_cast<unsigned int>(position.chapter), expected[i].chapter());
                EXPECT_EQ(static_cast<unsigned int>(position.verse), expected[i].verse());
            }
        }
}
