#pragma once

#include "made_sword.h"
#include "temp_folder.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace failing_test {

/// A command line of kedrin-module, or a session of the reader's engine.
struct Trial
{
    std::string name;                   ///< "show --with"
    std::vector<std::string> arguments; ///< of the program; empty: the engine's session
    bool usesSword = false;

    bool is(std::string_view command) const { return !arguments.empty() && arguments.front() == command; }
};

/// The content of every file by its path, and "link" or "folder" of others.
using Snapshot = std::map<std::string, std::string>;

/// A folder with modules and sources, in which each trial begins alike.
class CScene
{
public:
    CScene();

    /// What the program is tried with: every command that `kedrin-module help` lists.
    const std::vector<Trial>& trials() const { return m_trials; }

    /// Puts the modules back, as they are before each trial.
    void reset() const;

    /// What a trial may change.
    Snapshot snapshot() const;

    /// Runs a trial in this process, with its streams.
    /// @returns its exit code
    int run(const Trial& trial) const;

    /// Lets other users read everything, where they could not even enter the folders.
    void letOthersRead() const;

    std::string folder() const { return m_folder.file("work"); }

private:
    void makeSources() const;
    void makeTrials();
    int runEngine() const;

    const test_support::TempFolder m_folder;
    const build_test::MadeSword m_sword;
    Snapshot m_before;
    std::vector<Trial> m_trials;
};

} // namespace failing_test
