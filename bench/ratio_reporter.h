#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints the usual output and records the minimum processor time of each benchmark, since disturbances only
/// make a run longer. Benchmarks of other programs report it as manual time.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter();

    void ReportRuns(const std::vector<Run>& runs) override;

    /// Prints the ratio of the longer benchmark to the shorter one; nothing unless both have run.
    void printRatio(const char* what, const char* longer, const char* shorter) const;

private:
    std::map<std::string, double> m_times; ///< by name, in nanoseconds
};
