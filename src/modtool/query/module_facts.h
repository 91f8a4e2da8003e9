#pragma once

#include "module_reader.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// A book of a module. Texts are UTF-8.
struct BookFacts
{
    std::string osis;
    std::string title; ///< the short one
    std::string abbreviation;
    unsigned int chaptersCount;
    unsigned int versesCount;
};

/// Metadata and contents of a module. Texts are UTF-8, one line each.
struct ModuleFacts
{
    std::string folder;
    std::string fullTitle;
    std::string shortTitle;
    std::string abbreviatedTitle;
    std::vector<std::string> copyright; ///< lines
    std::vector<BookFacts> books;
    unsigned int chaptersCount = 0;
    unsigned int versesCount = 0;
    unsigned int emptyVersesCount = 0;
    unsigned int wordsCount = 0;
    std::vector<std::pair<std::string, std::uint64_t>> files; ///< names and sizes of the existing files
    std::uint64_t byteCount = 0;                              ///< of these files together

    unsigned int movedCount = 0;   ///< verses with a different number in the global numbering
    unsigned int outsideCount = 0; ///< verses mapped to a position that the global numbering lacks
    unsigned int roundTripCount =
        0; ///< verses from whose place in the global numbering the engine leads back
};

/// Reads the whole module.
/// @throws CModuleError
ModuleFacts moduleFacts(const std::string& folder);

/// The lines of a module's copyright, UTF-8.
std::vector<std::string> copyrightLines(const Tolvo::CBibleInfo& info);

} // namespace Kedrin::ModTool
