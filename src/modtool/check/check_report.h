#pragma once

#include "check_module.h"

#include <functional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// The report of `kedrin-module check` on one module, or on a modules directory and the modules in it.
struct CheckReport
{
    struct Directory
    {
        std::string folder;
        CFindings findings;
    };

    std::optional<Directory> directory;
    std::vector<ModuleReport> modules;
    std::vector<std::string> unchecked; ///< messages of CCheckError

    std::uint64_t count(Severity severity) const;

    /// Forgets what other checks have found than those that are wanted.
    void keepOnly(const std::function<bool(CheckID)>& isWanted);

    /// UTF-8, for the user: one line per module, below it one line per check with findings, below that their
    /// positions.
    std::string text() const;

    /// One JSON object on several lines. Invalid UTF-8 in texts is replaced by U+FFFD.
    std::string json() const;
};

/// `check --list`: one line per check: name, severity and advice.
std::string listOfChecks();

} // namespace Kedrin::ModTool
