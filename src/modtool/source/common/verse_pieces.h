#pragma once

#include "source_bible.h"

#include <vector>

namespace Kedrin::ModTool {

/// A verse, or a part of one, as it stands in the source.
struct VersePiece
{
    SourceVerse verse;
    bool isPart; ///< of the verse before it: 1b, or text that follows a title at its end
};

/// Sorts the pieces and makes the verses of the Bible of them, whose text they are in. Pieces of one verse are joined, a
/// verse 0 with the next one; a verse that is given twice with the same text is taken once.
void joinPieces(std::vector<VersePiece> pieces, SourceBible& bible);

} // namespace Kedrin::ModTool
