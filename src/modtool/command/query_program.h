#pragma once

#include "commands.h"

#include <memory>
#include <ostream>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Whether a command line is for the program that needs no library but the reader's own engine: it begins with show,
/// search, info, words, diff, list or remove, and asks for no expression to be searched for.
bool isQuery(int argc, const char* const* argv);

/// Makes these commands.
/// @param makeRegex  null where isQuery() has said so
std::vector<std::unique_ptr<ICommand>> makeQueryCommands(CLI::App& program, RegexMaker makeRegex);

/// The program for one of these commands: reads the arguments, runs the command.
/// @returns the exit code
int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace Kedrin::ModTool
