#pragma once

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// What to say where the first argument of a command is not the module: "", or one of
///     "the module comes first: %s": another argument is a module, or the arguments are what comes after it; with the
///     command line that was probably meant
/// "" too where it is not plain what was meant.
/// @param command    "show"
/// @param arguments  all of them, in order
std::string misplacedModule(const std::string& command, std::vector<std::string> arguments);

} // namespace Kedrin::ModTool
