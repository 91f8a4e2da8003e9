#pragma once

namespace Kedrin::ModTool {

/// Goes on as the program file that has all commands. It is a file of its own because it cannot run without the SWORD
/// library, and loading that takes longer than everything that a command does which only reads a module. It lies
/// beside this program's file, or where it is installed.
/// @returns exitTrouble, after a line on standard error, where there is no such file; else not at all
int execFullProgram(char* argv[]);

} // namespace Kedrin::ModTool
