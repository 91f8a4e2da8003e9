#pragma once

#include <ostream>

namespace Kedrin::ModTool {

/// Exit codes of kedrin-module.
enum ExitCode
{
    exitDone = 0,      ///< all went well
    exitFailed = 1,    ///< the source was refused or something could not be read or written; `check`: defects
    exitUsage = 2,     ///< the arguments make no sense
    exitUnchecked = 3, ///< `check`: something could not be checked
    exitUnwritten = 3  ///< standard output could not be written
};

/// The program: reads the arguments, runs a command.
/// @param terminal  where to draw a progress bar; null: nowhere
int runProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
               std::ostream* terminal);

/// The same on the standard streams, with a progress bar where standard error is a terminal.
int runProgram(int argc, const char* const* argv);

} // namespace Kedrin::ModTool
