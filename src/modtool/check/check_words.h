#pragma once

#include "check_books.h"
#include "check_findings.h"
#include "check_text.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Kedrin::ModTool {

/// Checks WordList.txt, WordPoint.bin, ConcP.bin and Conc.bin against each other and, where the text is known, against
/// the text in both directions.
/// @param text  null when the text could not be read
/// @returns how many words the list has; nothing when it cannot be read
/// @throws CCheckError
std::optional<std::uint64_t> checkWords(const std::string& folder, const CheckedShape& shape,
                                        const CheckedText* text, CFindings& findings);

} // namespace Kedrin::ModTool
