#pragma once

#include "command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <span>

namespace Kedrin::ModTool {

/// What the help of the program begins with, and the name that usage and errors give it.
class CProgramParser : public CLI::App
{
public:
    CProgramParser();
};

/// Reads the command line and runs the command that it names. Help goes to `out`; a command line that makes no sense is
/// answered on `err`.
/// @param commands  those that were added to `parser`
/// @returns the command's exit code; exitDone after help, exitUsage where the arguments make no sense; exitTrouble,
///          after a line on `err`, where `out` did not take all that was written
int runCommandLine(CLI::App& parser, std::span<const std::unique_ptr<ICommand>> commands, int argc,
                   const char* const* argv, const CommandStreams& streams);

/// Adds a command to the program's parser.
/// @param name         as it is typed
/// @param description  what it does, in a line; English, translated here
/// @param page         what its page of help says after the options: examples, exit codes; English, translated here
CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const char* page);

} // namespace Kedrin::ModTool
