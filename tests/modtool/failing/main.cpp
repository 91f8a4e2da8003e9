// Every system call and allocation of the commands and of the engine fails once.

#include "failing_allocation.h"
#include "limits.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <iostream>

namespace {

using namespace failing_test;

void nothing() {}

/// The distance at which `wanted` of `all` are evenly spread; 0 wanted: every one.
template <typename Number>
Number stepFor(Number all, unsigned int wanted)
{
    return wanted == 0 ? 1 : std::max<Number>(all / wanted, 1);
}

/// @param wanted  how many calls fail; 0: every one
Counts failCalls(const CAttempts& attempts, const Trial& trial, unsigned int wanted, unsigned int& callCount)
{
    const Attempt undisturbed = attempts.run(trial, nothing, {});
    callCount = undisturbed.end.calls;
    const unsigned int step = stepFor(callCount, wanted);
    Counts counts;
    for (unsigned int number = 1; number <= callCount; number += step) {
        const Attempt attempt = attempts.run(trial, nothing, {number});
        const std::string& name = attempt.end.failedCall;
        const bool removes =
            trial.is("remove") || name.starts_with("unlink") || name == "rmdir" || name == "getdents";
        attempts.judge(
            trial, undisturbed, attempt,
            {name + ' ' + std::to_string(number), removes, attempt.end.failedOnErrors, name == "mmap"},
            counts);
    }
    return counts;
}

Counts failAllocations(const CAttempts& attempts, const Trial& trial, unsigned int wanted, unsigned long& all)
{
    Counts counts;
    const Attempt undisturbed = attempts.runUnwatched(trial, [] { failAllocation(0); });
    all = undisturbed.allocations;
    if (!canFailAllocations() || trial.usesSword)
        return counts;
    const unsigned long step = stepFor(all, wanted);
    constexpr unsigned long first = 10; // those before are of this program
    for (unsigned long number = first; wanted > 0 && number <= all; number += step) {
        const Attempt attempt = attempts.runUnwatched(trial, [&] { failAllocation(number); });
        attempts.judge(trial, undisturbed, attempt,
                       {"allocation " + std::to_string(number), trial.is("remove"), false, true}, counts);
    }
    return counts;
}

std::string cells(const Counts& counts)
{
    return fmt::format(" | {} | {} | {}", counts.tried, counts.unchanged, counts.reported);
}

constexpr const char* page = R"(## Failing calls

`failing_calls` runs every command of `kedrin-module`, and a session of the engine, in a process whose system calls it
watches, and makes one of them fail: each that opens, reads, writes, seeks, locks, moves or removes a file or folder, asks
about one, or maps memory; of many, as many as the table says, evenly spread. Then it makes one allocation fail, for all
libraries, evenly spread over those of the command.
Allowed is what the command does anyway, where it does not need the call, or exit code 1 or 3 with a message, and all
files as they were before, or as they are after success where only the report could not be written; where removing a
temporary file failed, or the message names it, this file alone may remain. A folder made for the output may remain too;
`check` may report what it cannot open, `list` leaves out what it cannot look into, and `add --first` may add without the
order. Where memory is missing the engine may also end the program, which says so: its operations let out no such
exception. Allocations of the SWORD library are not tried; it does not check them.

| Command | Calls | Failed | No effect | Reported | Allocations | Failed | No effect | Reported | Ended by the engine |
|---|---|---|---|---|---|---|---|---|---|
{}
The same commands under limits of the process. The programs look at no clock, except that a transfer over the network
ends after an hour, or after 30 seconds without a byte.

| Limit | Tried | No effect | Reported | Ended by the engine |
|---|---|---|---|---|
{})";

} // namespace

int main(int argc, char* argv[])
{
    unsigned int calls = 0, allocations = 0;
    std::string chosen, file;
    bool withLimits = false;
    CLI::App options("Every system call and allocation of the commands and of the engine fails once.");
    options.add_option("--calls", calls, "How many calls of each trial fail, evenly spread; 0: every one");
    options.add_option("--allocations", allocations,
                       "How many allocations of each trial fail, evenly spread");
    options.add_option("--trial", chosen, "Only the trial of this name");
    options.add_flag("--limits", withLimits, "Tries the limits of a process too");
    options.add_option("--write", file, "Where to write the section of the quality report");
    CLI11_PARSE(options, argc, argv);
    if (!canWatch()) {
        fmt::print("system calls cannot be watched here\n");
        return 77;
    }

    const CScene scene;
    const CAttempts attempts(scene);
    std::string rows;
    Counts all;
    for (const Trial& trial : scene.trials()) {
        if (!chosen.empty() && trial.name != chosen)
            continue;
        unsigned int callCount = 0;
        unsigned long allocationCount = 0;
        const Counts withCalls = failCalls(attempts, trial, calls, callCount);
        const Counts withAllocations = failAllocations(attempts, trial, allocations, allocationCount);
        const std::string row =
            fmt::format("| {} | {}{} | {}{} | {} |\n", trial.name, callCount, cells(withCalls),
                        allocationCount, cells(withAllocations), withCalls.ended + withAllocations.ended);
        std::cout << row << std::flush;
        rows += row;
        all += withCalls;
        all += withAllocations;
    }
    const std::string limits = withLimits ? tryLimits(scene, attempts, all) : "";
    std::cout << limits << fmt::format("{} tried, {} wrong\n", all.tried, all.wrong);
    if (!file.empty())
        std::ofstream(file) << fmt::format(page, rows, limits);
    return all.wrong == 0 ? 0 : 1;
}
