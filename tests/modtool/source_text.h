#pragma once

#include "source_bible.h"
#include "thrown.h"

#include <string>

namespace test_support {

/// The verses of a source, a line each: "Gen 1:1 text", white space as a module will have it.
inline std::string linesOf(const Kedrin::ModTool::SourceBible& bible)
{
    std::string lines;
    for (const auto& verse : bible.verses) {
        lines += bible.placeOf(verse);
        bool hasBlank = true;
        for (const char c : bible.textOf(verse)) {
            const bool isBlank = c == ' ' || c == '\n' || c == '\r' || c == '\t';
            if (!isBlank && hasBlank)
                lines += ' ';
            if (!isBlank)
                lines += c;
            hasBlank = isBlank;
        }
        lines += '\n';
    }
    return lines;
}

} // namespace test_support
