#pragma once

#include "module_reader.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <string>

namespace Kedrin::ModTool {

using Json = nlohmann::ordered_json;

/// Writes a document with an indent of two blanks and a line end. Bytes that are no UTF-8, which a path may hold, are
/// replaced by U+FFFD.
void writeJsonText(const Json& document, std::ostream& out);

/// "Jonah 2:1", numbers from 1, for a place of the common numbering.
std::string osisLabel(const CommonPlace& place);

} // namespace Kedrin::ModTool
