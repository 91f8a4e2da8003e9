// How costs grow with the work: each benchmark is run with 1 to 20 times as much of one thing, everything else being
// the same. Its argument is that number.

#include "check.h"
#include "measured.h"
#include "module_files.h"
#include "process.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>

namespace {

using namespace Kedrin::Tolvo;

/// What a generated module has.
struct Size
{
    unsigned int verses = 3000;
    unsigned int words = 1000;
    unsigned int hits = 0; ///< verses with the word "yea"
    unsigned int versesOfAChapter = 25;

    auto operator<=>(const Size&) const = default;
};

/// A number in letters, so that it is a word.
std::string wordOf(unsigned int number)
{
    std::string word;
    for (int i = 0; i < 4; ++i, number /= 20)
        word += static_cast<char>('a' + number % 20);
    return word;
}

/// Verses of 20 words, each word in turn.
std::string verseOf(unsigned int number, const Size& size)
{
    constexpr unsigned int wordsOfAVerse = 20;
    std::string verse = number < size.hits ? "yea" : "nay";
    for (unsigned int i = 0; i < wordsOfAVerse; ++i)
        verse += ' ' + wordOf((number * wordsOfAVerse + i) % size.words);
    return verse;
}

std::vector<test_support::Book> booksOf(const Size& size)
{
    constexpr unsigned int chaptersOfABook = 50;
    std::vector<test_support::Book> books;
    for (unsigned int verse = 0; verse < size.verses; ++verse) {
        const unsigned int chapter = verse / size.versesOfAChapter;
        if (verse % (size.versesOfAChapter * chaptersOfABook) == 0) {
            const auto book = static_cast<unsigned int>(books.size());
            books.push_back({book, "Book " + std::to_string(book + 1), {}});
        }
        if (verse % size.versesOfAChapter == 0)
            books.back().chapters.resize(chapter % chaptersOfABook + 1);
        books.back().chapters.back().push_back(verseOf(verse, size));
    }
    return books;
}

/// The folder of a module, which is made once.
std::string moduleOf(const Size& size)
{
    static std::map<Size, std::unique_ptr<test_support::TempFolder>> made;
    auto& folder = made[size];
    if (!folder) {
        folder = std::make_unique<test_support::TempFolder>();
        test_support::makeModule("Made", booksOf(size)).write(folder->path());
    }
    return folder->path().string();
}

unsigned int factorOf(const benchmark::State& state) { return static_cast<unsigned int>(state.range(0)); }

void opening_words(benchmark::State& state)
{
    const std::string folder = moduleOf({.words = 3000 * factorOf(state)});
    checkAnswer(CBible(folder).wordsCount() >= 3000 * factorOf(state), "opening_words");
    for (auto _ : state)
        benchmark::DoNotOptimize(CBible(folder).wordsCount());
}

void part_verses(benchmark::State& state)
{
    const CBible bible(moduleOf({.verses = 3000 * factorOf(state)}));
    std::vector<CRef> hits;
    for (auto _ : state)
        bible.search("zzzz", false, false, hits);
    checkAnswer(hits.empty(), "part_verses");
}

void search_hits(benchmark::State& state, bool wholeWord)
{
    const CBible bible(moduleOf({.verses = 40000, .hits = 2000 * factorOf(state)}));
    std::vector<CRef> hits;
    for (auto _ : state)
        bible.search("yea", wholeWord, false, hits);
    checkAnswer(hits.size() == 2000 * factorOf(state), "search_hits");
}

std::size_t readChapter(const CBible& bible) { return bible.chapterVerses(0, 0).size(); }

void chapter_verses(benchmark::State& state)
{
    const CBible bible(moduleOf({.versesOfAChapter = 25 * factorOf(state)}));
    checkAnswer(readChapter(bible) == 25 * factorOf(state), "chapter_verses");
    for (auto _ : state)
        benchmark::DoNotOptimize(readChapter(bible));
}

void chapter_module(benchmark::State& state)
{
    const CBible bible(moduleOf({.verses = 3000 * factorOf(state)}));
    checkAnswer(readChapter(bible) == 25, "chapter_module");
    for (auto _ : state)
        benchmark::DoNotOptimize(readChapter(bible));
}

void list_modules(benchmark::State& state)
{
    const test_support::TempFolder folder;
    for (unsigned int i = 0; i < 50 * factorOf(state); ++i)
        folder.write("module" + std::to_string(i) + "/_Info_.txt", "Made\n");
    for (auto _ : state) {
        const CBibleModules modules(folder.path().string());
        for (unsigned int i = 0; i < modules.count(); ++i)
            benchmark::DoNotOptimize(modules.info(i));
        checkAnswer(modules.count() == 50 * factorOf(state), "list_modules");
    }
}

/// @param command  "build" or "check"
void tool(benchmark::State& state, const char* program, const std::string& command)
{
    const test_support::TempFolder folder;
    std::ofstream lines(folder.file("text.txt"));
    constexpr unsigned int versesOfAChapter = 1000;
    const Size size{.verses = 3000 * factorOf(state)};
    for (unsigned int verse = 0; verse < size.verses; ++verse)
        lines << "Gen\t" << verse / versesOfAChapter + 1 << '\t' << verse % versesOfAChapter + 1 << '\t'
              << verseOf(verse, size) << '\n';
    lines.close();
    const std::vector<std::string> build{program, "build", "--quiet", folder.file("text.txt"),
                                         folder.file("made")};
    checkAnswer(runProcess(build).exitCode == 0, "build");
    measureProgram(
        state, command == "build" ? build : std::vector<std::string>{program, command, folder.file("made")});
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const char* program = std::getenv("KEDRIN_BENCH_TOOL");
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !program)
        return 1;
    const auto add = [](const char* name, auto function) {
        auto* added = benchmark::RegisterBenchmark(name, function);
        for (const int factor : {1, 2, 5, 10, 20})
            added->Arg(factor);
        return added;
    };
    add("opening, words", opening_words);
    add("part of a word, verses", part_verses);
    add("part of a word, hits", [](benchmark::State& state) { search_hits(state, false); });
    add("whole word, hits", [](benchmark::State& state) { search_hits(state, true); });
    add("chapter, its verses", chapter_verses);
    add("chapter, verses of the module", chapter_module);
    add("list of translations", list_modules);
    add("build, verses", [=](benchmark::State& state) { tool(state, program, "build"); })->UseManualTime();
    add("check, verses", [=](benchmark::State& state) { tool(state, program, "check"); })->UseManualTime();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
