#pragma once

namespace Kedrin::ModTool {

/// Replaces this process by the program with all commands. That one is a separate file because it needs the libraries of
/// the formats, whose loading takes longer than showing a verse. It is found beside this program's file or in the private
/// directory it is installed to.
/// @returns exitTrouble, after a message on standard error, if it cannot be executed; otherwise does not
///          return
int execFullProgram(char* argv[]);

} // namespace Kedrin::ModTool
