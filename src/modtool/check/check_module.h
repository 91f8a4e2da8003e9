#pragma once

#include "check_findings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// The result of checking a module. Figures that the files do not tell are missing.
struct ModuleReport
{
    std::string folder; ///< as it was given
    CFindings findings;
    std::uint64_t booksCount = 0;
    std::optional<std::uint64_t> versesCount;
    std::optional<std::uint64_t> emptyVerses;
    /// Verses that map to the global numbering and back.
    std::optional<std::uint64_t> roundTrips;
    std::optional<std::uint64_t> wordsCount;

    ModuleReport(std::string moduleFolder, std::size_t maxPositions)
        : folder(std::move(moduleFolder)),
          findings(maxPositions)
    {}
};

/// Runs all checks of a module. Reads its files as bytes, never through the engine's operations, which may
/// terminate the program on a damaged module; time and memory are bounded for any content.
/// @throws CCheckError  "%s: is not a folder", "%s: cannot be read"
ModuleReport checkModule(const std::string& folder, std::size_t maxPositions);

/// Whether the folder contains at least one of a module's files.
bool isModule(const std::string& folder);

/// Checks what a modules directory contains beside its modules, and the modules against each other.
/// @param modules  their folders
CFindings checkDirectory(const std::string& directory, const std::vector<std::string>& modules,
                         std::size_t maxPositions);

} // namespace Kedrin::ModTool
