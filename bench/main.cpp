// Runs the benchmarks and says how the times compare: a time alone tells of the machine, a ratio of the program.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <unistd.h>

namespace {

/// Prints as ever, and keeps the least processor time of each benchmark: what disturbs a run only makes it
/// longer. The benchmarks of other programs give theirs as manual time.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter() : ConsoleReporter(::isatty(STDOUT_FILENO) != 0 ? OO_ColorTabular : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            const bool isOtherProcess = run.run_name.time_type == "manual_time";
            const double time = isOtherProcess ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
            const auto [known, isNew] = m_times.emplace(run.run_name.function_name, time);
            if (!isNew && time < known->second)
                known->second = time;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void printRatio(const char* what, const char* longer, const char* shorter) const
    {
        const auto over = m_times.find(longer);
        const auto under = m_times.find(shorter);
        if (over != m_times.end() && under != m_times.end())
            std::printf("%-52s %8.2f\n", what, over->second / under->second);
    }

private:
    std::map<std::string, double> m_times; ///< by name, in nanoseconds
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::puts("\nRatios of the least processor times");
    reporter.printRatio("part of a word, 300 hits: scan / reading alone", "scan/rare", "read_text_only");
    reporter.printRatio("part of a word, 20,000 hits: scan / reading alone", "scan/common", "read_text_only");
    reporter.printRatio("a part in every verse: scan / reading alone", "scan/every_verse", "read_text_only");
    reporter.printRatio("part of a word: plain scan / scan", "plain_scan/rare", "scan/rare");
    reporter.printRatio("part of a word, 300 hits: ripgrep / scan", "ripgrep/rare", "scan/rare");
    reporter.printRatio("part of a word, 20,000 hits: ripgrep / scan", "ripgrep/common", "scan/common");
    reporter.printRatio("ripgrep over nothing / scan", "ripgrep/start", "scan/rare");
    reporter.printRatio("real text: plain scan / scan", "real_plain_scan", "real_scan");
    reporter.printRatio("real text: ripgrep / scan", "real_ripgrep", "real_scan");
    reporter.printRatio("whole word, 300 hits: search / reading alone", "word/hits_300",
                        "read_entry_only/hits_300");
    reporter.printRatio("whole word, 20,000 hits: search / reading alone", "word/hits_20000",
                        "read_entry_only/hits_20000");
    reporter.printRatio("opening 60,000 words / reading alone", "open_module", "read_text_files_only");
    reporter.printRatio("chapter of 176 verses: whole / reading alone", "chapter/whole", "read_chapter_only");
    reporter.printRatio("chapter of 176 verses: verse by verse / whole", "chapter/verse_by_verse",
                        "chapter/whole");
    benchmark::Shutdown();
    return 0;
}
