#pragma once

#include "command.h"

#include <memory>
#include <span>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

struct ParserDeleter
{
    void operator()(CLI::App* parser) const;
};

using ProgramParser = std::unique_ptr<CLI::App, ParserDeleter>;

/// The parser of the program, with its description and the name shown in usage and error messages.
ProgramParser makeProgramParser();

/// Reads the command line and runs the command that it names. Help goes to `out`; invalid arguments are
/// reported on `err`.
/// @param commands  those that were added to `parser`
/// @returns the command's exit code; exitDone after help; exitUsage for invalid arguments; exitTrouble, after
///          a message on `err`, if not everything could be written to `out`
int runCommandLine(CLI::App& parser, std::span<const std::unique_ptr<ICommand>> commands, int argc,
                   const char* const* argv, const CommandStreams& streams);

} // namespace Kedrin::ModTool
