#pragma once

#include "check_report.h"
#include "command.h"
#include "progress.h"

#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module check MODULE | MODULES-DIR` and `kedrin-module check --list`.
class CCheckCommand final : public ICommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    explicit CCheckCommand(CLI::App& program);

    bool isChosen() const override;
    std::string usageError() const override;

    /// Checks, and reports. What cannot be checked is told on `err`; the rest is checked all the same.
    /// @returns exitDone: no errors (nor warnings, with --strict); exitFailed: some; exitUnchecked: something could not
    ///          be checked
    int run(const CommandStreams& streams) const override;

private:
    int runChecks(const CommandStreams& streams, CProgress& progress) const;
    CheckReport check(CProgress& progress) const;
    void checkModuleInto(const std::string& folder, CheckReport& report) const;

    CLI::App* m_command;
    std::string m_path;
    std::size_t m_maxPlaces;
    bool m_list = false;
    bool m_json = false;
    bool m_strict = false;
    bool m_quiet = false;
};

} // namespace Kedrin::ModTool
