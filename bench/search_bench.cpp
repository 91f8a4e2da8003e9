// Searches of a complete Bible, including reading its files, compared with a simple search, another program,
// and reading alone.

#include "bench_module.h"
#include "check.h"
#include "measured.h"
#include "process.h"
#include "tolvo_bible.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Kedrin::Tolvo;

const CBible& bible()
{
    static const CBible bible(CBenchModule::get().folder());
    return bible;
}

std::size_t searchHits(const std::string& text, bool wholeWord, bool caseSensitive)
{
    std::vector<CRef> hits;
    bible().search(text, wholeWord, caseSensitive, hits);
    return hits.size();
}

void scan(benchmark::State& state, const char* part, std::size_t expectedHits, bool caseSensitive)
{
    checkAnswer(searchHits(part, false, caseSensitive) == expectedHits, "scan");
    measure(state, [&] { benchmark::DoNotOptimize(searchHits(part, false, caseSensitive)); });
}
BENCHMARK_CAPTURE(scan, rare, "ZEBOI", CBenchModule::rareHits, false);
BENCHMARK_CAPTURE(scan, common, "YEA", CBenchModule::commonHits, false);
BENCHMARK_CAPTURE(scan, rare_exact, "zeboi", CBenchModule::rareHits, true);
BENCHMARK_CAPTURE(scan, every_verse, ".", CBenchModule::verseCount, false);

/// Reads each record and compares each verse separately.
std::size_t plainHits(CBibleText& text, const CBibleStructure& structure, const std::string& part)
{
    std::vector<CRef> hits;
    for (unsigned int v = 0; v < structure.totalVersesCount(); ++v) {
        const std::string verse = text[static_cast<int>(v)];
        if (ut::cyr_stristr(verse.c_str(), part.c_str()) != nullptr)
            hits.push_back(bible().toGlobal(structure.toRef(v)));
    }
    return hits.size();
}

void plain_scan(benchmark::State& state, const char* part, std::size_t expectedHits)
{
    const CBenchModule& module = CBenchModule::get();
    CBibleText text(module.file("CompactText.bin").c_str(), module.file("CompactPoint.bin").c_str());
    const CBibleStructure structure(module.file("BibleStructure.csv").c_str(), bible().booksCount());
    checkAnswer(plainHits(text, structure, part) == expectedHits, "plain_scan");
    measure(state, [&] { benchmark::DoNotOptimize(plainHits(text, structure, part)); });
}
BENCHMARK_CAPTURE(plain_scan, rare, "ZEBOI", CBenchModule::rareHits);

/// Another program with the same verses, including its start; with an empty input, only its start.
void ripgrep(benchmark::State& state, const char* part, const char* file, std::size_t expectedHits)
{
    const std::vector<std::string> command = {
        "rg", "--no-config", "-a",
        "-i", "-c",          "--include-zero",
        "-F", part,          file == nullptr ? CBenchModule::get().lines() : file};
    const std::string answer = runProcess(command).output;
    if (answer.empty()) {
        state.SkipWithError("ripgrep is not installed");
        return;
    }
    checkAnswer(answer == std::to_string(expectedHits) + "\n", "ripgrep");
    measureProgram(state, command);
}
BENCHMARK_CAPTURE(ripgrep, rare, "ZEBOI", nullptr, CBenchModule::rareHits)->UseManualTime();
BENCHMARK_CAPTURE(ripgrep, common, "YEA", nullptr, CBenchModule::commonHits)->UseManualTime();
BENCHMARK_CAPTURE(ripgrep, start, "ZEBOI", "/dev/null", 0)->UseManualTime();

/// The lower bound for every scan: reading both files in blocks of the same size without examining them.
void read_text_only(benchmark::State& state)
{
    const CBenchModule& module = CBenchModule::get();
    ut::CInputFile text(module.file("CompactText.bin").c_str());
    ut::CInputFile point(module.file("CompactPoint.bin").c_str());
    std::vector<char> block(CVerseCursor::defaultBlockBytes);
    measure(state, [&] {
        for (ut::CInputFile* file : {&text, &point})
            for (std::uint64_t offset = 0; offset < file->size(); offset += block.size())
                benchmark::DoNotOptimize(file->readAt(offset, block.data(), block.size()));
    });
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size() + point.size()));
}
BENCHMARK(read_text_only);

void word(benchmark::State& state, const char* text, std::size_t expectedHits)
{
    checkAnswer(searchHits(text, true, false) == expectedHits, "word");
    measure(state, [&] { benchmark::DoNotOptimize(searchHits(text, true, false)); });
}
BENCHMARK_CAPTURE(word, hits_300, CBenchModule::rareWord, CBenchModule::rareHits);
BENCHMARK_CAPTURE(word, hits_20000, CBenchModule::commonWord, CBenchModule::commonHits);

/// The lower bound for a whole word: reading as many bytes as its entry has and writing as many references.
void read_entry_only(benchmark::State& state, std::size_t hitCount)
{
    ut::CInputFile conc(CBenchModule::get().file("Conc.bin").c_str());
    std::vector<char> entry(2 + 2 * hitCount);
    measure(state, [&] {
        benchmark::DoNotOptimize(conc.readAt(0, entry.data(), entry.size()));
        std::vector<CRef> hits(hitCount, CRef(0, 0, 0, true));
        benchmark::DoNotOptimize(hits.data());
    });
}
BENCHMARK_CAPTURE(read_entry_only, hits_300, CBenchModule::rareHits);
BENCHMARK_CAPTURE(read_entry_only, hits_20000, CBenchModule::commonHits);

} // namespace
