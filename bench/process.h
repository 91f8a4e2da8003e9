#pragma once

#include <string>
#include <vector>

struct ProcessEnd
{
    std::string output;    ///< its standard output; "" if it could not be started
    int exitCode = -1;     ///< -1: could not be started, or ended by a signal
    double cpuSeconds = 0; ///< its processor time, including its start
    double peakBytes = 0;  ///< its peak memory use, or that of this process if larger
};

/// Runs a program found on PATH, without a shell, and waits for it.
ProcessEnd runProcess(const std::vector<std::string>& command);
