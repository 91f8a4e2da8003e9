#pragma once

#include "commands.h"

#include <memory>
#include <ostream>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Whether a command line is for the program without the libraries of the formats: it begins with check, export, show,
/// search, info, words, diff, list or remove, and asks for no expression to be searched for.
bool isQuery(int argc, const char* const* argv);

/// Makes these commands.
/// @param makeRegex  null where isQuery() has said so
std::vector<std::unique_ptr<ICommand>> makeQueryCommands(CLI::App& program, RegexMaker makeRegex);

/// The program for one of these commands: reads the arguments, runs the command.
/// @param terminal  where progress is drawn; null: nowhere
/// @returns the exit code
int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
                    std::ostream* terminal);

} // namespace Kedrin::ModTool
