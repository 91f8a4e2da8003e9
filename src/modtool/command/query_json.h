#pragma once

#include "module_reader.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <string>

namespace Kedrin::ModTool {

using Json = nlohmann::ordered_json;

/// Writes a document indented by two spaces, with a final line end. Bytes that are not UTF-8, which a path
/// may hold, are replaced by U+FFFD.
void writeJsonText(const Json& document, std::ostream& out);

/// A verse: "reference" as shown, its numbers from 1 in the module ("local") and in the global numbering ("common"),
/// "text".
Json verseJson(const CModuleReader& module, const Tolvo::CRef& local);

/// "Jonah 2:1", numbers from 1, for a position in the global numbering.
std::string osisLabel(const GlobalPosition& position);

} // namespace Kedrin::ModTool
