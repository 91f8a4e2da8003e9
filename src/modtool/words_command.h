#pragma once

#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module words MODULE [PREFIX] [--counts]`: the words of a module in its order, a line each.
class CWordsCommand
{
public:
    explicit CWordsCommand(CLI::App& program);

    bool isChosen() const;

    /// @returns a QueryExit: done, or nothing when no word begins so
    /// @throws CModuleError  the module's words cannot be read
    int run(std::ostream& out) const;

private:
    CLI::App* m_command;
    std::string m_module;
    std::string m_prefix;
    bool m_counts = false;
};

} // namespace Kedrin::ModTool
