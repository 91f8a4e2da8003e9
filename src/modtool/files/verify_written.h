#pragma once

#include "module_data.h"

#include <cstdint>
#include <string>

namespace Kedrin::ModTool {

/// Reads a written module back with the engine and compares all of it with what was to be written: titles,
/// structure, every verse, words, concordance, metadata, and how many verses map correctly both ways.
/// @returns number of letters and digits in the verses read
/// @param roundTrips  how many verses are expected to map correctly both ways
/// @throws CBuildError  "%s: the written module failed verification: %s", the folder and what is wrong
std::uint64_t checkWritten(const std::string& folder, const ModuleData& module, unsigned int roundTrips);

} // namespace Kedrin::ModTool
