#pragma once

#include "module_data.h"

#include <cstdint>
#include <string>

namespace Kedrin::ModTool {

/// Reads a written module back with the engine and compares everything with what was to be written: titles,
/// structure, every verse, words, concordance, information, and how many verses keep their place both ways.
/// @returns letters and digits of the verses that were read
/// @param kept  how many of the module's places the differences are meant to keep
/// @throws CBuildError  "%s: the written module failed verification: %s", the folder and what is wrong
std::uint64_t checkWritten(const std::string& folder, const ModuleData& module, unsigned int kept);

} // namespace Kedrin::ModTool
