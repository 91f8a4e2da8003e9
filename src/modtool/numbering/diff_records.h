#pragma once

#include "module_data.h"

#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Appends the records at the beginning of the text that are whole.
/// @returns whether nothing follows them
bool readDifferences(std::string_view text, std::vector<DiffRecord>& records);

/// Records as _Diff_.txt writes them: five numbers each, white space between. Nothing is chosen; the order stays.
/// @throws CBuildError  "the differences are no records of five numbers"
std::vector<DiffRecord> parseDifferences(std::string_view text);

/// How many of the verses the engine leads to their place in the common numbering and back, given these records.
unsigned int keptWith(const std::vector<VersePair>& pairs, const std::vector<DiffRecord>& records);

} // namespace Kedrin::ModTool
