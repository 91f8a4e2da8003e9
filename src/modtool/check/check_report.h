#pragma once

#include "check_module.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// What `kedrin-module check` has to say: on one module, or on a modules directory and the modules in it.
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

    /// UTF-8, for people: a line a module, below it a line a check that found something, below that its places.
    std::string text() const;

    /// One JSON object, with line ends. Texts that are not UTF-8 have U+FFFD where they are not.
    std::string json() const;
};

/// `check --list`: a line a check, name, severity and advice.
std::string listOfChecks();

} // namespace Kedrin::ModTool
