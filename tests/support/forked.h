#pragma once

#include <functional>
#include <string>

namespace test_support {

/// How a forked copy of this process ended.
struct ForkedEnd
{
    int exitCode = -1; ///< what the body returned; -1: a signal ended it
    int signal = 0;    ///< 0: it ended by itself
    std::string standardError;
};

/// Runs `body` in a forked copy of this process and waits for it. Where the promised outcome is the end of the
/// program, a test can so watch a thousand ends without a new start each. A body that throws gives exit code 99.
ForkedEnd runForked(const std::function<int()>& body);

/// Gives up root's right to read everything, for the rest of this (forked) process; nothing to do for others.
void becomeNobody();

/// How many descriptors this process holds open.
int openDescriptors();

} // namespace test_support
