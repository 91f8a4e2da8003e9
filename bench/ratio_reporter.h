#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints as ever, and keeps the least processor time of each benchmark: what disturbs a run only makes it longer.
/// The benchmarks of other programs give theirs as manual time.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter();

    void ReportRuns(const std::vector<Run>& runs) override;

    /// A line that says how often the shorter benchmark goes into the longer one; nothing unless both have run.
    void printRatio(const char* what, const char* longer, const char* shorter) const;

private:
    std::map<std::string, double> m_times; ///< by name, in nanoseconds
};
