#pragma once

#include "forked.h"

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace process_test {

using Command = std::vector<std::string>;
using test_support::ForkedEnd;

/// The built program, `kedrin-module`, with these arguments.
Command tool(const Command& arguments);

/// Replaces the process by a program found on PATH, with messages in English; for the body of runForked().
[[noreturn]] void become(const Command& command);

/// Runs a program and waits for it.
ForkedEnd run(const Command& command);

/// A program that runs concurrently; it is killed with this object.
class StartedProcess
{
public:
    explicit StartedProcess(const Command& command);
    ~StartedProcess();
    StartedProcess(const StartedProcess&) = delete;
    StartedProcess& operator=(const StartedProcess&) = delete;

    /// Waits until it has ended, at most this long.
    bool endsWithin(std::chrono::nanoseconds time) const;

    void kill() const;

    /// Waits for its end. Call it once.
    ForkedEnd wait();

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_errors;
    pid_t m_process = -1;
    int m_descriptor = -1; ///< becomes readable when the process ends
};

} // namespace process_test
