#pragma once

#include "source_bible.h"

#include <vector>

namespace Kedrin::ModTool {

/// A verse, or part of one, as in the source.
struct VersePiece
{
    SourceVerse verse;
    bool isPart; ///< part of the verse before it: 1b, or text after a title at its end
};

/// Sorts the pieces and makes the verses of the Bible, which owns their text, from them. Pieces of one verse
/// are joined, a verse 0 with the next one; a verse repeated with the same text is kept once.
void joinPieces(std::vector<VersePiece> pieces, SourceBible& bible);

} // namespace Kedrin::ModTool
