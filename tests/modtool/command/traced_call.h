#pragma once

#include "tool_process.h"

#include <functional>
#include <string>
#include <vector>

namespace process_test {

/// A system call of a program by which files or folders are made, written, moved or removed.
struct TracedCall
{
    std::string name;    ///< "mkdir"
    unsigned int number; ///< among the program's calls of this name, from 1
    std::string text;    ///< as strace shows it: `fsync(4</tmp/a>) = 0`
};

/// The path of what a call makes, writes, syncs or, under its new name, moves.
std::string fileOf(const TracedCall& call);

/// Whether strace is here and may trace.
bool canTrace();

/// Something that happens to one call of a program.
struct Injection
{
    std::string name; ///< of the call, and its number, as in TracedCall
    unsigned int number;
    /// In strace's words: "signal=KILL" where it enters the call, "error=ENOSPC" instead of it.
    std::string what;
};

/// The command that runs a program and has these happen; several of one name do not go together.
Command withInjected(const std::vector<Injection>& injections, const Command& command);

/// Runs a program to its end and gives its calls, in order, from the first one that `isFirst` takes.
std::vector<TracedCall> tracedCalls(const Command& command,
                                    const std::function<bool(const std::string&)>& isFirst,
                                    const std::vector<Injection>& injections = {});

} // namespace process_test
