#pragma once

#include <exception>
#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// Where a command writes. The streams outlive the run.
struct CommandStreams
{
    std::ostream& out;      ///< reports and answers
    std::ostream& err;      ///< errors, one per line: sayError()
    std::ostream* terminal; ///< where to draw a progress bar; null: nowhere
};

/// One command of the program. The constructor adds the command, its options and its help to the program's
/// parser; the object must outlive the parsing.
class ICommand
{
public:
    virtual ~ICommand() = default;

    /// Whether the command line names this command.
    virtual bool isChosen() const = 0;

    /// Checks that the parser cannot make: "", or what is wrong with the arguments.
    virtual std::string usageError() const { return ""; }

    /// Runs the command. Errors are written to `err`, one per line; nothing is thrown.
    /// @returns the program's exit code
    virtual int run(const CommandStreams& streams) const = 0;
};

/// Writes the message of a failed build.
/// @returns the exit code: exitTrouble for CPartMissing, otherwise exitFailed
int sayFailure(std::ostream& err, const std::exception& failure);

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

    /// Writes the answer.
    /// @returns exitDone, or exitFailed where nothing is found, or `diff` finds differences
    /// @throws CNotFound, CModuleError
    virtual int answer(std::ostream& out) const = 0;

    CLI::App* m_command; ///< owned by the program's parser
};

} // namespace Kedrin::ModTool
