#pragma once

#include "sword_texts.h"

namespace Kedrin::Add {

/// Opens the window, with the file or folder that the first argument names, and runs until it is closed.
/// @returns the program's exit status: 1 after an exception that nobody answered, which is written to standard error
int runAddProgram(int argc, char** argv, const ModTool::ISword& sword);

} // namespace Kedrin::Add
