#pragma once

#include "commands.h"
#include "failing_call.h"

#include <optional>

namespace failing_test {

/// How a trial ended.
struct Attempt
{
    WatchedEnd end;
    std::string output;
    std::string errors;
    Snapshot after;
    unsigned long allocations = 0;
};

/// What made a trial fail.
struct Cause
{
    std::string what;           ///< "read 17", for the reader of the report
    bool mayLeaveFiles = false; ///< removing was what failed
    bool hasNoErrors = false;   ///< standard error cannot be written
    bool isMemory = false;
};

/// What became of attempts.
struct Counts
{
    unsigned int tried = 0;
    unsigned int unchanged = 0; ///< as without the failure
    unsigned int reported =
        0; ///< a documented exit code and a message; all files as before, or as after success
    unsigned int ended = 0; ///< the engine ended the program, as its contract says, with a message
    unsigned int cut = 0;   ///< a stream that got no memory has less text, and nothing says so
    unsigned int wrong = 0;

    Counts& operator+=(const Counts& other);
};

/// Tries commands again and again, each time with another cause of failure.
class CAttempts
{
public:
    explicit CAttempts(const CScene& scene);
    ~CAttempts();
    CAttempts(const CAttempts&) = delete;
    CAttempts& operator=(const CAttempts&) = delete;

    /// Runs a trial in a forked process.
    /// @param prepare  what the process does first
    Attempt run(const Trial& trial, const std::function<void()>& prepare, const FailingCall& failing) const;

    /// The same without the watching of system calls.
    Attempt runUnwatched(const Trial& trial, const std::function<void()>& prepare) const;

    /// Says of what a failure made of a trial whether it is allowed, and counts it.
    /// @param undisturbed  the trial without the failure
    void judge(const Trial& trial, const Attempt& undisturbed, const Attempt& attempt, const Cause& cause,
               Counts& counts) const;

private:
    Attempt finished(const WatchedEnd& end) const;
    std::function<int()> body(const Trial& trial, const std::function<void()>& prepare) const;

    const CScene& m_scene;
    Snapshot m_before;
    int m_output; ///< files in memory that the streams are sent to
    int m_errors;
    unsigned long* m_allocations; ///< shared with the forked processes
};

} // namespace failing_test
