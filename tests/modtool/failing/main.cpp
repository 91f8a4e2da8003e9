// Every system call and allocation of the commands and of the engine fails once.
//
//     failing_calls [--calls STEP] [--allocations COUNT] [--trial NAME] [--limits yes] [--write FILE]
//
// STEP: every how manieth call fails; COUNT: how many allocations of each trial fail, evenly spread.

#include "failing_allocation.h"
#include "limits.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

using namespace failing_test;

void nothing() {}

/// @returns what became of the trial when each step-th call failed
Counts failCalls(const CAttempts& attempts, const Trial& trial, unsigned int step, unsigned int& callCount)
{
    const Attempt undisturbed = attempts.run(trial, nothing, {});
    callCount = undisturbed.end.calls;
    Counts counts;
    for (unsigned int number = 1; number <= callCount; number += step) {
        const Attempt attempt = attempts.run(trial, nothing, {number});
        const std::string& name = attempt.end.failedCall;
        const bool removes = name.starts_with("unlink") || name == "rmdir" || name == "getdents";
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
    const unsigned long step = std::max<unsigned long>(all / std::max(wanted, 1u), 1);
    constexpr unsigned long first = 10; // those before are of this program
    for (unsigned long number = first; wanted > 0 && number <= all; number += step) {
        const Attempt attempt = attempts.runUnwatched(trial, [&] { failAllocation(number); });
        attempts.judge(trial, undisturbed, attempt,
                       {"allocation " + std::to_string(number), false, false, true}, counts);
    }
    return counts;
}

std::string optionOf(int argc, char* argv[], const std::string& name, const std::string& otherwise)
{
    for (int i = 1; i + 1 < argc; i += 2)
        if (argv[i] == name)
            return argv[i + 1];
    return otherwise;
}

std::string cells(const Counts& counts)
{
    std::ostringstream row;
    row << " | " << counts.tried << " | " << counts.unchanged << " | " << counts.reported;
    return row.str();
}

std::string section(const std::string& rows, const std::string& limits)
{
    return "## Failing calls\n\n"
           "`failing_calls` runs every command of `kedrin-module`, and a session of the engine, in a process "
           "whose system "
           "calls it\n"
           "watches, and makes one of them fail: each that opens, reads, writes, seeks, locks, moves or "
           "removes a file or "
           "folder, asks\n"
           "about one, or maps memory. Then it makes one allocation fail, for all libraries, evenly spread "
           "over those of "
           "the command.\n"
           "Allowed is what the command does anyway, where it does not need the call, or exit code 1 or 3 "
           "with a message, and "
           "all\n"
           "files as they were before, or as they are after success where only the report could not be "
           "written; where "
           "removing a\n"
           "temporary file failed, this file alone may remain. Where memory is missing the engine may also "
           "end the "
           "program, which\n"
           "says so: its operations let out no such exception. Allocations of the SWORD library are not "
           "tried; it does not check "
           "them.\n\n"
           "| Command | Calls | Failed | No effect | Reported | Allocations | Failed | No effect | Reported "
           "| Ended by the engine |\n"
           "|---|---|---|---|---|---|---|---|---|---|\n" +
           rows +
           "\nThe same commands under limits of the process. The programs look at no clock, except that a "
           "transfer over the network "
           "ends\n"
           "after an hour, or after 30 seconds without a byte.\n\n"
           "| Limit | Tried | No effect | Reported | Ended by the engine |\n|---|---|---|---|---|\n" +
           limits;
}

} // namespace

int main(int argc, char* argv[])
{
    if (!canWatch()) {
        std::puts("system calls cannot be watched here");
        return 77;
    }
    const auto step = static_cast<unsigned int>(std::stoul(optionOf(argc, argv, "--calls", "1")));
    const auto wanted = static_cast<unsigned int>(std::stoul(optionOf(argc, argv, "--allocations", "0")));
    const std::string chosen = optionOf(argc, argv, "--trial", "");
    const CScene scene;
    const CAttempts attempts(scene);
    std::ostringstream rows;
    Counts all;
    for (const Trial& trial : scene.trials()) {
        if (!chosen.empty() && trial.name != chosen)
            continue;
        unsigned int callCount = 0;
        unsigned long allocationCount = 0;
        const Counts calls = failCalls(attempts, trial, step, callCount);
        const Counts allocations = failAllocations(attempts, trial, wanted, allocationCount);
        rows << "| " << trial.name << " | " << callCount << cells(calls) << " | " << allocationCount
             << cells(allocations) << " | " << calls.ended + allocations.ended << " |\n";
        all += calls;
        all += allocations;
    }
    std::string limits;
    if (optionOf(argc, argv, "--limits", "no") == "yes")
        limits = tryLimits(scene, attempts, all);
    std::cout << rows.str() << limits << all.tried << " tried, " << all.wrong << " wrong\n";
    if (const std::string file = optionOf(argc, argv, "--write", ""); !file.empty())
        std::ofstream(file) << section(rows.str(), limits);
    return all.wrong == 0 ? 0 : 1;
}
