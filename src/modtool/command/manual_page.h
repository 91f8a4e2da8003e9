#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Kedrin::ModTool {

/// The manual page of the program, for man(1), made from the help of its commands: in the user's language, UTF-8.
/// @param program  with all commands added
std::string manualPage(const CLI::App& program);

} // namespace Kedrin::ModTool
