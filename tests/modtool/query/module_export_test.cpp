#include "build.h"
#include "commands.h"
#include "errors.h"
#include "module_export.h"
#include "osis_writer.h"
#include "query_fixture.h"
#include "read_source.h"
#include "sword_library.h"
#include "thrown.h"
#include "verse_lines_writer.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

using namespace Kedrin::ModTool;
using namespace query_test;
using test_support::messageOf;

namespace {

/// Builds modules from sources, exports them and builds the exports.
class Exports : public testing::Test
{
protected:
    std::string write(const std::string& name, const std::string& content) const
    {
        return m_folder.write(name, content);
    }

    /// The ten files of the module built from a source, by name.
    std::map<std::string, std::string> built(const std::string& source,
                                             const BuildOptions& options = {}) const
    {
        CTerminalProgress none(nullptr);
        const std::string module =
            m_folder.file("built/" + std::filesystem::path(source).filename().string());
        buildModule(readSourceFile(source, {}), module, options, "", none);
        return filesOf(module);
    }

    static std::map<std::string, std::string> filesOf(const std::string& module)
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(module)) {
            std::ifstream in(entry.path(), std::ios::binary);
            files[entry.path().filename()] = {std::istreambuf_iterator<char>(in), {}};
        }
        return files;
    }
    std::string moduleOf(const std::string& source) const
    {
        return m_folder.file("built/" + std::filesystem::path(source).filename().string());
    }

    /// Builds the source, and each export of the module, and checks that all give the same ten files.
    void expectRoundTrip(const std::string& content) const
    {
        const std::string source = write("source", content);
        const auto files = built(source);
        ASSERT_EQ(files.size(), 10u);
        expectSameAgain(moduleOf(source), files);
    }

    /// As expectRoundTrip(), for an existing module.
    void expectSameAgain(const std::string& module, const std::map<std::string, std::string>& files) const
    {
        const SourceBible bible = exportModule(CModuleReader(module));
        EXPECT_TRUE(built(write("again.txt", verseLinesFile(bible))) == files);
        EXPECT_TRUE(built(write("again.xml", osisFile(bible))) == files);
    }

    Result exported(const std::vector<std::string>& arguments) const
    {
        CLI::App program;
        const auto command = makeExportCommand(program);
        std::vector<const char*> argv = {"kedrin-module", "export"};
        for (const std::string& argument : arguments)
            argv.push_back(argument.c_str());
        program.parse(static_cast<int>(argv.size()), argv.data());
        std::ostringstream out;
        std::ostringstream err;
        const int code = command->run({out, err, nullptr});
        return {code, out.str(), err.str()};
    }

    test_support::TempFolder m_folder;
    Modules m_modules;
};

const std::string threeVerses =
    "Gen\t1\t1\tВ начало <Бог> & \"слово\".\nGen\t1\t3\tИ рече.\nExod\t2\t1\tКрай; &amp;.\n";

} // namespace

TEST_F(Exports, VerseLinesToTheLetter)
{
    const std::string module = m_modules.add("m", test_support::smallModule());
    EXPECT_EQ(exported({module, "--to", "verse-lines"}), (Result{0,
                                                                 "# title: Малък превод\n"
                                                                 "# short: Малък\n"
                                                                 "# abbr: МП\n"
                                                                 "# copyright: Свободен текст\n"
                                                                 "# versification: KJV\n"
                                                                 "Gen\t1\t1\tБог рече\n"
                                                                 "Gen\t1\t2\tземя\n"
                                                                 "Gen\t2\t1\tрече Бог\n"
                                                                 "Exod\t1\t1\t\n",
                                                                 ""}));
}

TEST_F(Exports, OsisToTheLetter)
{
    test_support::ModuleFiles files = test_support::smallModule();
    files.bytes["BibleTitles.txt"] = "1 1\nExodus \"2\" <&>\nExodus\nEx\n";
    files.bytes["BibleStructure.csv"] = "2 2 1\n";
    files.bytes["_Diff_.txt"] = "2 2 1 0 4\n";
    EXPECT_EQ(
        exported({m_modules.add("m", files), "--to", "osis"}),
        (Result{0,
                "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<osis xmlns=\"http://www.bibletechnologies.net/2003/OSIS/namespace\">\n"
                "<osisText osisIDWork=\"Module\" osisRefWork=\"Bible\" xml:lang=\"und\">\n"
                "<header>\n"
                "<work osisWork=\"Module\">\n"
                "<title>Малък превод</title>\n"
                "<title type=\"x-short\">Малък</title>\n"
                "<title type=\"x-abbreviation\">МП</title>\n"
                "<description type=\"x-copyright\">Свободен текст</description>\n"
                "<description type=\"x-differences\">2 2 1 0 4</description>\n"
                "</work>\n"
                "</header>\n"
                "<div type=\"book\" osisID=\"Exod\">\n"
                "<title type=\"x-module\" short=\"Exodus\" n=\"Ex\">Exodus \"2\" &lt;&amp;&gt;</title>\n"
                "<chapter osisID=\"Exod.1\">\n"
                "<verse osisID=\"Exod.1.1\">Бог рече</verse>\n"
                "<verse osisID=\"Exod.1.2\">земя</verse>\n"
                "</chapter>\n"
                "<chapter osisID=\"Exod.2\">\n"
                "<verse osisID=\"Exod.2.1\">рече Бог</verse>\n"
                "</chapter>\n"
                "</div>\n"
                "</osisText>\n"
                "</osis>\n",
                ""}));
}

TEST_F(Exports, BuildOfAnExportIsTheSameModule)
{
    expectRoundTrip(threeVerses);
    expectRoundTrip("# title: Нов <превод> & друг\n# short: Нов\n# abbr: Н\n# copyright: (c) \"ние\" <&>\n"
                    "# copyright:\n# copyright: край\n" +
                    threeVerses);
}

TEST_F(Exports, BackslashesComeBack) { expectRoundTrip("Gen\t1\t1\t\\nd Бог\\+nd* рече\\\\x \\\n"); }

TEST_F(Exports, TitlesOfBooksComeBack)
{
    expectRoundTrip("# book: Gen\tGenesis \"1\" <&>\tGenesis\tGn\n" + threeVerses);
}

TEST_F(Exports, VersificationComesBack)
{
    std::string jonah;
    for (int verse = 1; verse <= 16; ++verse)
        jonah += "Jonah\t1\t" + std::to_string(verse) + "\ta\n";
    for (int verse = 1; verse <= 11; ++verse)
        jonah += "Jonah\t2\t" + std::to_string(verse) + "\tb\n";
    expectRoundTrip("# versification: Synodal\n" + jonah);
    EXPECT_NE(built(write("synodal", "# versification: Synodal\n" + jonah)),
              built(write("kjv", "# versification: KJV\n" + jonah)));
}

TEST_F(Exports, DifferencesThatNoVersificationGivesComeBack)
{
    expectRoundTrip("# differences: 1 2 1 0 7 2 2 1 1 -1\n" + threeVerses);
    expectRoundTrip("# differences: 3 2 1 0 5\n" + threeVerses); // of a book after the last of the module
    EXPECT_EQ(built(write("s", "# differences: 1 2 1 0 7\n" + threeVerses))["_Diff_.txt"], "1 2 1 0 7\n");
}

TEST_F(Exports, OptionsGoBeforeTheHeader)
{
    const std::string source =
        write("s", "# title: a\n# differences: 1 2 1 0 7\n# book: Gen\tGenesis\tGenesis\tGn\n" + threeVerses);
    BuildOptions options;
    options.fullTitle = "b";
    options.versification = "KJV";
    options.sourceTitles = false;
    auto files = built(source, options);
    EXPECT_EQ(files["_Info_.txt"], "b\na\na\n");
    EXPECT_EQ(files["_Diff_.txt"], "");
    EXPECT_EQ(files["BibleTitles.txt"].find("Genesis"), std::string::npos);
}

TEST_F(Exports, RemarksAndBadHeaders)
{
    EXPECT_EQ(built(write("s", "# a remark\n#\n#: x\n# other: y\n" + threeVerses)).size(), 10u);
    const auto refusal = [&](const std::string& header) {
        const std::string source = write("s", header + threeVerses);
        const std::string message = messageOf<CBuildError>([&] { built(source); });
        return message.starts_with(source) ? message.substr(source.size()) : message;
    };
    EXPECT_EQ(refusal("# x\n# book: Gen\ta\tb\n"),
              ":2: book titles must be an id and three titles, separated by tabs");
    EXPECT_EQ(refusal("# book: Gen\ta\tb\tc\td\n"),
              ":1: book titles must be an id and three titles, separated by tabs");
    EXPECT_EQ(refusal("# differences: 1 2 3 4\n"), "the differences are not records of five numbers");
    EXPECT_EQ(refusal("# versification: Klingon\n").substr(0, 38),
              "unknown versification \"Klingon\" (known");
}

TEST_F(Exports, WritesAFile)
{
    const std::string module = m_modules.add("m", test_support::smallModule());
    const std::string file = m_folder.file("export.txt");
    EXPECT_EQ(exported({module, file, "--to", "verse-lines"}), (Result{0, "", ""}));
    std::ifstream in(file, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}),
              exported({module, "--to", "verse-lines"}).out);
    EXPECT_EQ(exported({module, "/nowhere/export.txt", "--to", "osis"}).code, 3);
}

TEST_F(Exports, RefusesAModuleWithABookTwice)
{
    test_support::ModuleFiles files = test_support::smallModule();
    files.bytes["BibleTitles.txt"].replace(0, 5, "2 0 0");
    const std::string module = m_modules.add("m", files);
    EXPECT_EQ(exported({module, "--to", "osis"}),
              (Result{3, "", "kedrin-module: " + module + ": the book Gen appears twice\n"}));
}

TEST_F(Exports, WholeBibleComesBack)
{
    const CSwordLibrary library;
    const std::vector<std::string> installed = library.bibles();
    ASSERT_FALSE(installed.empty()) << "sword-text-kjv is not installed";
    CTerminalProgress none(nullptr);
    BuildOptions options;
    options.substitute = true;
    const std::string module = m_folder.file("built/whole");
    buildModule(library.read(installed.front(), [](std::size_t, std::size_t) {}), module, options, "", none);
    expectSameAgain(module, filesOf(module));
}
