#pragma once

#include "sword_texts.h"

namespace Kedrin::Add {

/// Opens the window, with the file or folder that the first argument names, and runs until it is closed. If the first
/// argument is --no-texts, by which the launcher of Kedrin tells that there is no module, a box asks first whether to.
/// @returns the program's exit status: 1 after an exception that nobody answered, which is written to standard error; 255
///          where the box was closed
int runAddProgram(int argc, char** argv, const ModTool::ISword& sword);

} // namespace Kedrin::Add
