#pragma once

#include <string>
#include <vector>

struct ProcessEnd
{
    std::string output;    ///< what it wrote to standard output; "" when it could not be started
    int exitCode = -1;     ///< -1: it could not be started, or a signal ended it
    double cpuSeconds = 0; ///< its processor time, its start included
    double peakBytes = 0;  ///< the most memory that it had in use, and at least what this process had
};

/// Runs a program found on PATH, without a shell, and waits for it.
ProcessEnd runProcess(const std::vector<std::string>& command);
