// Opening a module and reading a chapter.

#include "bench_module.h"
#include "check.h"
#include "measured.h"
#include "tolvo_bible.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Kedrin::Tolvo;

void open_module(benchmark::State& state)
{
    const std::string folder = CBenchModule::get().folder();
    checkAnswer(CBible(folder).wordsCount() == CBenchModule::wordCount, "open_module");
    measure(state, [&] { benchmark::DoNotOptimize(CBible(folder).wordsCount()); });
}
BENCHMARK(open_module);

/// The lower bound for opening: reading the text files completely.
void read_text_files_only(benchmark::State& state)
{
    const CBenchModule& module = CBenchModule::get();
    measure(state, [&] {
        for (const char* name :
             {"BibleTitles.txt", "BibleStructure.csv", "_Diff_.txt", "WordList.txt", "_Info_.txt"}) {
            std::string content;
            checkAnswer(ut::read_text_file(module.file(name).c_str(), content), "read_text_files_only");
            benchmark::DoNotOptimize(content.data());
        }
    });
}
BENCHMARK(read_text_files_only);

std::size_t verseByVerse(const CBible& bible)
{
    std::size_t byteCount = 0;
    for (unsigned int verse = 0; verse < CBenchModule::longChapterVerses; ++verse)
        byteCount += bible[CRef(CBenchModule::longChapterBook, 0, verse, false)].size();
    return byteCount;
}

std::size_t wholeChapter(const CBible& bible)
{
    std::size_t byteCount = 0;
    for (const std::string& verse : bible.chapterVerses(CBenchModule::longChapterBook, 0))
        byteCount += verse.size();
    return byteCount;
}

void chapter(benchmark::State& state, std::size_t (*read)(const CBible&))
{
    const CBible bible(CBenchModule::get().folder());
    const std::size_t byteCount = read(bible);
    checkAnswer(byteCount > CBenchModule::longChapterVerses && byteCount == verseByVerse(bible), "chapter");
    measure(state, [&] { benchmark::DoNotOptimize(read(bible)); });
}
BENCHMARK_CAPTURE(chapter, whole, wholeChapter);
BENCHMARK_CAPTURE(chapter, verse_by_verse, verseByVerse);

/// The lower bound for a chapter: its bytes in one read.
void read_chapter_only(benchmark::State& state)
{
    const CBenchModule& module = CBenchModule::get();
    const std::size_t byteCount = verseByVerse(CBible(module.folder())) + 2 * CBenchModule::longChapterVerses;
    ut::CInputFile text(module.file("CompactText.bin").c_str());
    std::vector<char> bytes(byteCount);
    measure(state, [&] { benchmark::DoNotOptimize(text.readAt(0, bytes.data(), bytes.size())); });
}
BENCHMARK(read_chapter_only);

} // namespace
