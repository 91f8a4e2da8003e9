#pragma once

#include <string>
#include <vector>

struct ProcessEnd
{
    std::string output;    ///< what it wrote to standard output; "" when it could not be started
    double cpuSeconds = 0; ///< its processor time, its start included
};

/// Runs a program found on PATH, without a shell, and waits for it.
ProcessEnd runProcess(const std::vector<std::string>& command);
