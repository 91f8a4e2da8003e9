// The same scan of a real text: the module in KEDRIN_BENCH_MODULE. Not run without it.

#include "check.h"
#include "measured.h"
#include "process.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>

namespace {

using namespace Kedrin::Tolvo;

constexpr const char* needle = "LORD";

/// The module, and its verses one per line for the other program.
struct RealText
{
    explicit RealText(const std::string& moduleFolder)
        : bible(moduleFolder),
          text((moduleFolder + "/CompactText.bin").c_str(), (moduleFolder + "/CompactPoint.bin").c_str()),
          structure((moduleFolder + "/BibleStructure.csv").c_str(), bible.booksCount())
    {
        std::ofstream out(lines, std::ios::binary);
        for (unsigned int v = 0; v < structure.totalVersesCount(); ++v)
            out << text[static_cast<int>(v)] << '\n';
    }

    std::size_t scanHits() const
    {
        std::vector<CRef> hits;
        bible.search(needle, false, false, hits);
        return hits.size();
    }

    std::size_t plainHits()
    {
        std::vector<CRef> hits;
        for (unsigned int v = 0; v < structure.totalVersesCount(); ++v)
            if (ut::cyr_stristr(text[static_cast<int>(v)].c_str(), needle) != nullptr)
                hits.push_back(bible.toGlobal(structure.toRef(v)));
        return hits.size();
    }

    CBible bible;
    CBibleText text;
    CBibleStructure structure;
    test_support::TempFolder folder;
    std::string lines = folder.file("lines.txt");
};

void real_scan(benchmark::State& state, RealText& real)
{
    checkAnswer(real.scanHits() == real.plainHits(), "real_scan");
    measure(state, [&] { benchmark::DoNotOptimize(real.scanHits()); });
    state.counters["hits"] = static_cast<double>(real.scanHits());
}

void real_plain_scan(benchmark::State& state, RealText& real)
{
    measure(state, [&] { benchmark::DoNotOptimize(real.plainHits()); });
}

void real_ripgrep(benchmark::State& state, RealText& real)
{
    const std::vector<std::string> command = {"rg", "--no-config", "-a",   "-i",
                                              "-c", "-F",          needle, real.lines};
    const std::string answer = runProcess(command).output;
    if (answer.empty()) {
        state.SkipWithError("ripgrep is not installed");
        return;
    }
    checkAnswer(answer == std::to_string(real.scanHits()) + "\n", "real_ripgrep");
    measureProgram(state, command);
}

[[maybe_unused]] const bool registered = [] {
    const char* folder = std::getenv("KEDRIN_BENCH_MODULE");
    if (folder == nullptr)
        return false;
    static RealText real(folder);
    benchmark::RegisterBenchmark("real_scan", [](benchmark::State& state) { real_scan(state, real); });
    benchmark::RegisterBenchmark("real_plain_scan",
                                 [](benchmark::State& state) { real_plain_scan(state, real); });
    benchmark::RegisterBenchmark("real_ripgrep", [](benchmark::State& state) {
        real_ripgrep(state, real);
    })->UseManualTime();
    return true;
}();

} // namespace
