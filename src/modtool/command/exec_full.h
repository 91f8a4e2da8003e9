#pragma once

namespace Kedrin::ModTool {

/// Replaces this process by the program with all commands. That one is a separate file because it needs the
/// SWORD library, whose loading takes longer than any command that only reads a module. It is found beside
/// this program's file or in the private directory it is installed to.
/// @returns exitTrouble, after a message on standard error, if it cannot be executed; otherwise does not
///          return
int execFullProgram(char* argv[]);

} // namespace Kedrin::ModTool
