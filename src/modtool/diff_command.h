#pragma once

#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module diff MODULE OTHER [--count]`: the verses in which two modules differ.
class CDiffCommand
{
public:
    explicit CDiffCommand(CLI::App& program);

    bool isChosen() const;

    /// @returns a QueryExit: done when all verses are the same, nothing when any differs
    /// @throws CModuleError  a module cannot be read
    int run(std::ostream& out) const;

private:
    CLI::App* m_command;
    std::string m_first;
    std::string m_second;
    bool m_count = false;
};

} // namespace Kedrin::ModTool
