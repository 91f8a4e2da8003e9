#pragma once

#include "plain_verses.h"
#include "verse_starts.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads lines of verses and headings.
/// @throws CBuildError
///     "%s:%u: a verse before any book: write its name on a line above, or give it with --book"
///     "%s:%u: a verse before any chapter: write its heading above, such as Chapter 1"
void readPlainLines(const std::string& fileName, std::string_view utf8, VerseForm form, CPlainVerses& verses);

} // namespace Kedrin::ModTool
