#pragma once

#include "check_findings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The content of a module's file. Nothing, and a finding, when it is not there, is no regular file or is too long.
/// @param missing  the check that a missing file fails
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

/// Takes the next line off `rest`: up to LF or the end, LF left out, a CR before it kept.
std::string_view takeLine(std::string_view& rest);

/// A line as the reader sees it: without its CR, and up to the first zero byte.
std::string_view lineText(std::string_view line);

/// Whether a byte is no character of Windows-1251 (98) or a control character.
bool hasBadByte(std::string_view text);

} // namespace Kedrin::ModTool
