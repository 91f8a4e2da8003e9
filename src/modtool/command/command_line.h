#pragma once

#include "command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <span>

namespace Kedrin::ModTool {

/// The parser of the program, with its description and the name shown in usage and error messages.
class CProgramParser : public CLI::App
{
public:
    CProgramParser();
};

/// Reads the command line and runs the command that it names. Help goes to `out`; invalid arguments are
/// reported on `err`.
/// @param commands  those that were added to `parser`
/// @returns the command's exit code; exitDone after help; exitUsage for invalid arguments; exitTrouble, after
///          a message on `err`, if not everything could be written to `out`
int runCommandLine(CLI::App& parser, std::span<const std::unique_ptr<ICommand>> commands, int argc,
                   const char* const* argv, const CommandStreams& streams);

/// Adds a command to the program's parser.
/// @param name         as it is typed
/// @param description  what it does, in one line; English, translated here
/// @param page         shown in its help after the options: examples, exit codes; English, translated here
CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const char* helpText);

} // namespace Kedrin::ModTool
