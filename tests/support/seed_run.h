#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace test_support {

/// The result of one seed.
struct Outcome
{
    std::string name; ///< one line
    bool allowed = true;
    bool processIsSpent = false; ///< the next seed needs a new process
};

/// What a program that tries seeds was asked for.
struct SeedRun
{
    unsigned int first = 1;
    unsigned int count = 1;
    std::string countsFile;          ///< where to write the counts; none if empty
    unsigned int perProcess = 50;    ///< seeds tried in one process
    unsigned int secondsForOne = 60; ///< a seed that takes longer hangs
};

/// From the arguments [--counts FILE] FIRST COUNT; others end the program with status 2.
SeedRun seedRunOf(int argc, char** argv);

/// Tries the seeds in forked processes, so that one that crashes, ends its process or hangs is known, and the
/// seeds after it are still tried. Prints how often each outcome came, and every outcome that is not allowed
/// with its seed.
/// @returns the exit status: 0 if all were allowed
int trySeeds(const SeedRun& run, const std::function<Outcome(unsigned int seed)>& tryOne);

} // namespace test_support
