#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Words of the command line as one text, a blank between two.
std::string joined(const std::vector<std::string>& words);

/// The width of the terminal that `out` writes to; `otherwise` where it writes to none.
unsigned int terminalWidth(const std::ostream& out, unsigned int otherwise);

} // namespace Kedrin::ModTool
