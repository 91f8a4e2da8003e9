#pragma once

#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module info MODULE [--json]`: what a module says of itself, and what it holds.
class CInfoCommand
{
public:
    explicit CInfoCommand(CLI::App& program);

    bool isChosen() const;

    /// @returns a QueryExit: done
    /// @throws CModuleError  the module cannot be read
    int run(std::ostream& out) const;

private:
    CLI::App* m_command;
    std::string m_module;
    bool m_json = false;
};

} // namespace Kedrin::ModTool
