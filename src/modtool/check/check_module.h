#pragma once

#include "check_findings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// What is known of a module after its check. Figures are missing where the files do not tell them.
struct ModuleReport
{
    std::string folder; ///< as it was given
    CFindings findings;
    std::uint64_t booksCount = 0;
    std::optional<std::uint64_t> versesCount;
    std::optional<std::uint64_t> emptyVerses;
    /// Verses that keep their place to the common numbering and back.
    std::optional<std::uint64_t> keptPlaces;
    std::optional<std::uint64_t> wordsCount;

    ModuleReport(std::string moduleFolder, std::size_t maxPlaces)
        : folder(std::move(moduleFolder)),
          findings(maxPlaces)
    {}
};

/// Runs all checks of a module. Reads its files as bytes, never through the engine's operations, which may end the
/// program for a damaged module; whatever the files hold, time and memory are bounded by the limits of the checks.
/// @throws CCheckError  "%s: is not a folder", "%s: cannot be read"
ModuleReport checkModule(const std::string& folder, std::size_t maxPlaces);

/// Whether the folder holds at least one of a module's files.
bool isModule(const std::string& folder);

/// What belongs to a modules directory beside its modules.
/// @param modules  their folders
CFindings checkDirectory(const std::string& directory, const std::vector<std::string>& modules,
                         std::size_t maxPlaces);

} // namespace Kedrin::ModTool
