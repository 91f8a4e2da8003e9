#pragma once

#include "command.h"

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// A command that reads modules and writes what it finds to standard output. CNotFound makes the exit code
/// exitFailed, any other exception exitTrouble.
class CQueryCommand : public ICommand
{
public:
    bool isChosen() const final;
    int run(const CommandStreams& streams) const final;

protected:
    /// @param command  the parser's, made by addCommand()
    explicit CQueryCommand(CLI::App* command) : m_command(command) {}

    /// @returns an ExitCode
    /// @throws CNotFound, CModuleError
    virtual int answer(std::ostream& out) const = 0;

    CLI::App* m_command; ///< owned by the program's parser
};

} // namespace Kedrin::ModTool
