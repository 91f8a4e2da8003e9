#pragma once

#include "check_findings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The content of a module's file. Nothing, and a finding, if it is missing, not a regular file or too long.
/// @param missing  reported if the file is missing
/// @throws CCheckError  "%s: cannot be read"
std::optional<std::string> readForCheck(const std::string& folder, std::string_view name, CFindings& findings,
                                        CheckID missing = CheckID::fileMissing);

/// The same for a file of records of `recordBytes` bytes each; a partial record at the end is a finding.
std::optional<std::string> readRecordsForCheck(const std::string& folder, std::string_view name,
                                               std::size_t recordBytes, CFindings& findings,
                                               CheckID missing = CheckID::fileMissing);

/// Little-endian numbers of a file's content, by record index.
std::uint32_t unsigned16At(std::string_view content, std::size_t recordIndex);
std::uint32_t unsigned32At(std::string_view content, std::size_t recordIndex);

/// Removes and returns the next line of `rest`: without its LF, but with a CR before it.
std::string_view takeLine(std::string_view& rest);

/// A line as the reader sees it: without its CR, and up to the first zero byte.
std::string_view lineText(std::string_view line);

/// Whether any byte is a control character or not a Windows-1251 character (0x98).
bool hasBadByte(std::string_view text);

} // namespace Kedrin::ModTool
