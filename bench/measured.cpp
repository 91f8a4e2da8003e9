#include "measured.h"

#include "check.h"
#include "temp_folder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

/// What callgrind counts in one run of a program; if it goes over to another (exec), in that one.
double instructionsOf(std::vector<std::string> command)
{
    const test_support::TempFolder folder;
    const std::string report = folder.file("report");
    const std::vector<std::string> counter = {"valgrind", "--tool=callgrind", "--trace-children=yes",
                                              "--callgrind-out-file=/dev/null", "--log-file=" + report};
    command.insert(command.begin(), counter.begin(), counter.end());
    runProcess(command);
    std::ifstream lines(report);
    for (std::string line; std::getline(lines, line);)
        if (const std::size_t at = line.find("Collected : "); at != std::string::npos)
            return std::stod(line.substr(at + 12));
    checkAnswer(false, "callgrind");
    return 0;
}

} // namespace

void measureProgram(benchmark::State& state, const std::vector<std::string>& command)
{
    double peakBytes = 0;
    for (auto _ : state) {
        const ProcessEnd end = runProcess(command);
        checkAnswer(end.exitCode != -1, command[0].c_str());
        state.SetIterationTime(end.cpuSeconds);
        peakBytes = std::max(peakBytes, end.peakBytes);
    }
    state.counters["peak_MB"] = peakBytes / 1e6;
    if (std::getenv("KEDRIN_BENCH_INSTRUCTIONS") != nullptr)
        state.counters["instructions"] = instructionsOf(command);
}
