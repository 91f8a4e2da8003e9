#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Kedrin::ModTool {

/// What the parser says is wrong with the command line, in the user's language.
std::string usageMessage(const CLI::ParseError& error);

} // namespace Kedrin::ModTool
