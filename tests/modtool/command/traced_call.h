#pragma once

#include "tool_process.h"

#include <functional>
#include <string>
#include <vector>

namespace process_test {

/// A system call of a program that creates, writes, moves or removes files or folders.
struct TracedCall
{
    std::string name;    ///< "mkdir"
    unsigned int number; ///< among the program's calls of this name, from 1
    std::string text;    ///< as strace shows it: `fsync(4</tmp/a>) = 0`
};

/// The path that a call creates, writes or syncs, or the new path of what it moves.
std::string fileOf(const TracedCall& call);

/// Whether strace is installed and permitted.
bool canTrace();

/// An event at one system call of a program.
struct Injection
{
    std::string name; ///< of the call, and its number, as in TracedCall
    unsigned int number;
    /// In strace's syntax: "signal=KILL" on entering the call, "error=ENOSPC" instead of it.
    std::string what;
};

/// The command that runs a program with these events; only one per name is possible.
Command withInjected(const std::vector<Injection>& injections, const Command& command);

/// Runs a program to its end and returns its calls, in order, starting with the first one that `isFirst`
/// accepts.
std::vector<TracedCall> tracedCalls(const Command& command,
                                    const std::function<bool(const std::string&)>& isFirst,
                                    const std::vector<Injection>& injections = {});

} // namespace process_test
