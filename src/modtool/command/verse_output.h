#pragma once

#include "text_matcher.h"

#include <ostream>
#include <string>

namespace Kedrin::ModTool {

/// How verses are written a verse a line.
struct VerseLayout
{
    unsigned int width = 0; ///< of a line, the rest below the text's beginning; 0: unlimited
    const ITextMatcher* highlight =
        nullptr; ///< what stands out in bold red, as terminals show it; null: nothing
};

/// Writes "label  text". A text that would have less than a column's least width is not broken.
void writeVerse(const std::string& label, const std::string& text, const VerseLayout& layout,
                std::ostream& out);

/// Whether colours are wanted on `out`: it is a terminal, and NO_COLOR is not set or empty.
bool wantsColours(const std::ostream& out);

} // namespace Kedrin::ModTool
