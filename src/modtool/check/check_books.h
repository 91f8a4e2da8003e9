#pragma once

#include "check_findings.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// A book as the module's own files give it, believed as far as its chapters have been counted.
struct CheckedBook
{
    std::uint32_t globalID = 0;             ///< any number
    std::vector<std::uint32_t> versesCount; ///< [chapter]
};

/// What a module says of its books. Nothing in it is proved but the number of books and chapters.
struct CheckedShape
{
    std::vector<CheckedBook> books; ///< none when BibleTitles.txt cannot be used
    bool hasStructure = false;      ///< whether `versesCount` of the books is known
    std::uint64_t totalVerses = 0;  ///< sum of `versesCount`

    /// "Gen", or "book 3" for a number that the global numbering lacks.
    std::string bookName(std::size_t book) const;

    /// "Gen 1:1"; "verse 17", from 1, when the structure does not reach there.
    std::string positionOf(std::uint32_t verseNum) const;
};

/// Checks BibleTitles.txt and BibleStructure.csv, each by itself and against the other.
/// @throws CCheckError
CheckedShape checkBooks(const std::string& folder, CFindings& findings);

/// Checks _Info_.txt.
/// @throws CCheckError
void checkInfo(const std::string& folder, CFindings& findings);

} // namespace Kedrin::ModTool
