#pragma once

#include "sword_texts.h"

#include <ostream>

namespace Kedrin::ModTool {

/// The program: reads the arguments, runs a command.
/// @returns the exit code
/// @param terminal  where to draw a progress bar; null: nowhere
int runProgram(int argc, const char* const* argv, const ISword& sword, std::ostream& out, std::ostream& err,
               std::ostream* terminal);

/// The same on the standard streams, with a progress bar where standard error is a terminal.
int runProgram(int argc, const char* const* argv, const ISword& sword);

} // namespace Kedrin::ModTool
