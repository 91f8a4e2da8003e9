#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Kedrin::ModTool {

/// The parser's error message, in the user's language.
std::string usageMessage(const CLI::ParseError& error);

} // namespace Kedrin::ModTool
