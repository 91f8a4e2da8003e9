#pragma once

#include "module_data.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Reads records as _Diff_.txt writes them: five numbers each, white space between. Calls `use` for each, in
/// order, up to the first that is not five numbers of their types, where the engine stops, too.
/// @returns what was not read, from that record on; "" where all was read
std::string_view forEachDiffRecord(std::string_view text, const std::function<void(const DiffRecord&)>& use);

/// The records at the beginning of the text that are whole.
std::vector<DiffRecord> readDiffRecords(std::string_view text);

/// The records of a text that holds nothing else.
/// @throws CBuildError  "the differences are not records of five numbers"
std::vector<DiffRecord> parseDiffRecords(std::string_view text);

/// A record as _Diff_.txt writes it: "1 2 2 0 -1".
std::string diffRecordText(const DiffRecord& record);

} // namespace Kedrin::ModTool
