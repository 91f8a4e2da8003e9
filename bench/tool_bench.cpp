// The module tool with a complete Bible, compared with programs that do similar work: one that counts the
// words of a text, and those that index a SWORD text and show a verse of it. Times are processor times,
// including the start of the programs.

#include "check.h"
#include "measured.h"
#include "process.h"
#include "temp_folder.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

namespace fs = std::filesystem;

using Command = std::vector<std::string>;

constexpr const char* swordName = "engKJV2006eb";
constexpr const char* plainName = "Plain";
constexpr const char* swordFolder = "/usr/share/sword";
constexpr const char* verse = "only begotten Son, that whosoever believeth in him should not perish";

std::string contentOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// One text in all its forms: a module, its verses one per line, and in a separate folder the original SWORD
/// text with its markup, and one with only the verses.
class Text
{
public:
    Text(std::string program, std::string module) : m_program(std::move(program)), m_module(std::move(module))
    {
        checkAnswer(run({"export", m_module, lines(), "--to", "verse-lines"}).exitCode == 0, "export");
        const std::string name = std::string("mods.d/") + swordName + ".conf";
        std::istringstream configuration(contentOf(fs::path(swordFolder) / name));
        fs::create_directories(sword() + "/mods.d");
        fs::copy_file(fs::path(swordFolder) / name, sword() + '/' + name);
        for (std::string line; std::getline(configuration, line);)
            if (line.starts_with("DataPath="))
                copyTexts(line.substr(line.find('=') + 1));
        writePlainText();
    }

    std::string lines() const { return m_folder.file("text.txt"); }
    std::string sword() const { return m_folder.file("sword"); }
    std::string built() const { return m_folder.file("modules/built"); }
    const std::string& module() const { return m_module; }

    Command tool(Command arguments) const
    {
        arguments.insert(arguments.begin(), m_program);
        return arguments;
    }
    ProcessEnd run(const Command& arguments) const { return runProcess(tool(arguments)); }

    /// Building the lines gives the original module.
    bool isBuiltRight() const
    {
        const auto isSame = [&](const fs::directory_entry& file) {
            return contentOf(file) == contentOf(fs::path(built()) / file.path().filename());
        };
        return std::all_of(fs::directory_iterator(m_module), fs::directory_iterator(), isSame);
    }

    /// A command that finds the SWORD texts in the separate folder.
    Command withSword(Command command) const
    {
        command.insert(command.begin(), {"env", "HOME=" + sword(), "SWORD_PATH=" + sword()});
        return command;
    }

private:
    void copyTexts(std::string path) const
    {
        path.erase(path.find_last_not_of("/\r") + 1);
        fs::create_directories(sword() + '/' + path);
        fs::copy(fs::path(swordFolder) / path, sword() + '/' + path);
    }

    void writePlainText() const
    {
        const std::string verses = m_folder.file("text.imp"), plain = sword() + "/plain";
        writeForImport(verses);
        fs::create_directories(plain);
        runProcess({"imp2vs", verses, "-o", plain, "-z", "z"});
        std::ofstream(sword() + "/mods.d/plain.conf")
            << '[' << plainName << "]\nDataPath=./plain/\nModDrv=zText\nBlockType=BOOK\nCompressType=ZIP\n"
            << "Encoding=UTF-8\n";
    }

    /// Each verse as "$$$Gen 1:1", followed by a line with its text.
    void writeForImport(const std::string& fileName) const
    {
        std::istringstream source(contentOf(lines()));
        std::ofstream verses(fileName);
        for (std::string line; std::getline(source, line);) {
            if (line.starts_with('#'))
                continue;
            std::istringstream fields(line);
            std::string book, chapter, number, text;
            std::getline(fields, book, '\t');
            std::getline(fields, chapter, '\t');
            std::getline(fields, number, '\t');
            std::getline(fields, text);
            verses << "$$$" << book << ' ' << chapter << ':' << number << '\n' << text << '\n';
        }
    }

    test_support::TempFolder m_folder;
    std::string m_program;
    std::string m_module;
};

void word_count(benchmark::State& state, const Text& text)
{
    const Command command{"wc", "-w", text.lines()};
    std::istringstream words(contentOf(text.lines()));
    const auto count = std::distance(std::istream_iterator<std::string>(words), {});
    const long counted = std::atol(runProcess(command).output.c_str());
    checkAnswer(counted == count, "wc");
    measureProgram(state, command);
}

void build(benchmark::State& state, const Text& text)
{
    const Command arguments{"build", "--quiet", text.lines(), text.built()};
    checkAnswer(text.run(arguments).exitCode == 0 && text.isBuiltRight(), "build");
    measureProgram(state, text.tool(arguments));
}

void check(benchmark::State& state, const Text& text)
{
    const Command arguments{"check", text.module()};
    const ProcessEnd end = text.run(arguments);
    checkAnswer(end.exitCode == 0 && end.output.find(text.module()) != std::string::npos, "check");
    measureProgram(state, text.tool(arguments));
}

void show(benchmark::State& state, const Text& text)
{
    const Command arguments{"show", text.module(), "John", "3:16"};
    checkAnswer(text.run(arguments).output.find(verse) != std::string::npos, "show");
    measureProgram(state, text.tool(arguments));
}

void diatheke(benchmark::State& state)
{
    const Command command{"diatheke", "-b", swordName, "-f", "plain", "-k", "John", "3:16"};
    checkAnswer(runProcess(command).output.find(verse) != std::string::npos, "diatheke");
    measureProgram(state, command);
}

void mkfastmod(benchmark::State& state, const Text& text, const char* name)
{
    const Command command = text.withSword({"mkfastmod", name});
    runProcess(command);
    const Command search = {"diatheke", "-b", name, "-s", "lucene", "-k", "whosoever believeth"};
    checkAnswer(runProcess(text.withSword(search)).output.find("John 3:16") != std::string::npos,
                "mkfastmod");
    measureProgram(state, command);
}

template <typename Function>
void add(const char* name, Function function)
{
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const char* program = std::getenv("KEDRIN_BENCH_TOOL");
    const char* module = std::getenv("KEDRIN_BENCH_MODULE");
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !program || !module)
        return 1;
    const Text text(program, module);
    add("word_count", [&](benchmark::State& state) { word_count(state, text); });
    add("build", [&](benchmark::State& state) { build(state, text); });
    add("check", [&](benchmark::State& state) { check(state, text); });
    add("show", [&](benchmark::State& state) { show(state, text); });
    add("diatheke", [&](benchmark::State& state) { diatheke(state); });
    add("mkfastmod_marked_up", [&](benchmark::State& state) { mkfastmod(state, text, swordName); });
    add("mkfastmod_plain", [&](benchmark::State& state) { mkfastmod(state, text, plainName); });
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
