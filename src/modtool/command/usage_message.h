#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// The parser's error message, in the user's language, with the options that are spelt like an unknown one.
/// @param parser  the program's, with the command that it has found
std::string usageMessage(const CLI::ParseError& error, const CLI::App& parser);

/// Those of the names of which the text is most probably a misspelling: "a", "a, b"; "" for none.
std::string namesLike(const std::string& typed, const std::vector<std::string>& names);

} // namespace Kedrin::ModTool
