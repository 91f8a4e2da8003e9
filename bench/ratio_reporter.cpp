#include "ratio_reporter.h"

#include <cstdio>
#include <unistd.h>

RatioReporter::RatioReporter() : ConsoleReporter(::isatty(STDOUT_FILENO) != 0 ? OO_ColorTabular : OO_Tabular)
{}

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const bool isOtherProcess = run.run_name.time_type == "manual_time";
        const double time = isOtherProcess ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
        const double nanoseconds = time / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9;
        const auto [known, isNew] = m_times.emplace(run.run_name.function_name, nanoseconds);
        if (!isNew && nanoseconds < known->second)
            known->second = nanoseconds;
    }
    ConsoleReporter::ReportRuns(runs);
}

void RatioReporter::printRatio(const char* what, const char* longer, const char* shorter) const
{
    const auto over = m_times.find(longer);
    const auto under = m_times.find(shorter);
    if (over != m_times.end() && under != m_times.end())
        std::printf("%-52s %8.2f\n", what, over->second / under->second);
}
