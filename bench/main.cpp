// Runs the benchmarks and prints the ratios of their times, which depend less on the machine than the times.

#include "ratio_reporter.h"

#include <cstdio>

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
