#pragma once

#include <functional>
#include <string>

namespace failing_test {

/// A system call that is to fail.
struct FailingCall
{
    unsigned int number = 0; ///< among the watched calls of the process, from 1; 0: none fails
};

/// How a forked process ended.
struct WatchedEnd
{
    int exitCode = -1; ///< -1: ended by a signal
    int signal = 0;
    unsigned int calls = 0;      ///< watched calls that the process made
    std::string failedCall;      ///< the name of the one that failed; "" if it was not reached
    bool failedOnErrors = false; ///< it was a write to standard error
};

/// Whether the system lets a process watch another's calls.
bool canWatch();

/// Runs `body` in a forked process and watches those of its system calls that open, read, write, move and remove files
/// and folders, or map memory. One of them fails with the error that is usual for it, instead of being made. Files are
/// not synced: fsync() does nothing and succeeds.
WatchedEnd runWatched(const std::function<int()>& body, const FailingCall& failing);

} // namespace failing_test
