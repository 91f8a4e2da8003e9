#pragma once

#include "commands.h"

#include <memory>
#include <ostream>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Whether a word of the command line names a command that does not need the SWORD library: show, search, info, words,
/// diff, list or remove.
bool isQueryCommand(std::string_view word);

/// Makes these commands.
std::vector<std::unique_ptr<ICommand>> makeQueryCommands(CLI::App& program);

/// The program for one of these commands: reads the arguments, runs the command.
/// @returns the exit code
int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace Kedrin::ModTool
