#pragma once

namespace Kedrin::Add {

/// Replaces this process by kedrin-add-sword, the same window in a program that is linked with the SWORD library, where
/// that is installed: beside this program's file or in the private directory of the installation. Returns where it is
/// not, or cannot be executed. That program executes nothing in turn.
void execSwordWindow(char* argv[]);

} // namespace Kedrin::Add
