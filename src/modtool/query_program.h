#pragma once

#include <ostream>

namespace Kedrin::ModTool {

/// The program for one of the commands of CQueryCommands: reads the arguments, runs the command.
/// @returns an ExitCode or a QueryExit
int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace Kedrin::ModTool
