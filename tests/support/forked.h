#pragma once

#include <functional>
#include <string>

namespace test_support {

/// How a forked process ended.
struct ForkedEnd
{
    int exitCode = -1; ///< the result of the body; -1: ended by a signal
    int signal = 0;    ///< 0: not ended by a signal
    std::string standardError;
};

/// Runs `body` in a forked process and waits for it. If the promised result is the end of the program, a test
/// can check thousands of cases without starting a program for each. If the body throws, the exit code is 99.
ForkedEnd runForked(const std::function<int()>& body);

/// Drops root's permission to read everything, for the rest of this (forked) process; does nothing for other
/// users.
void becomeNobody();

/// The number of open descriptors of this process.
int openDescriptors();

} // namespace test_support
