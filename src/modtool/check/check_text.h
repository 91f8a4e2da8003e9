#pragma once

#include "check_books.h"
#include "check_findings.h"
#include "word_index.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// What the text of a module holds.
struct CheckedText
{
    std::uint32_t versesCount = 0; ///< how many the module has, as far as that can be told
    std::uint32_t emptyVerses = 0;
    std::vector<bool> isUnread; ///< [verse number]: its text is not known
    WordIndex words;            ///< by the rule by which modules are built
};

/// Checks CompactPoint.bin and CompactText.bin against each other and against the structure, and every verse: its
/// bytes, its markup. One pass over the text.
/// @returns nothing when one of the files cannot be used, or when they hold more than can be checked
/// @throws CCheckError
std::optional<CheckedText> checkText(const std::string& folder, const CheckedShape& shape,
                                     CFindings& findings);

} // namespace Kedrin::ModTool
