#pragma once

#include <ostream>
#include <string>

namespace Kedrin::ModTool {

/// The program for one of the commands of CQueryCommands: reads the arguments, runs the command.
/// @returns an ExitCode or a QueryExit
int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

/// Says what is wrong with the arguments, and where help is.
/// @returns exitUsage
int refuseUsage(std::ostream& err, const std::string& what);

} // namespace Kedrin::ModTool
