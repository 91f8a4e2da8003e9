#pragma once

#include "installed_modules.h"

#include <QString>

namespace Kedrin::Add {

/// The title of an installed module; "" where it has none.
QString titleOf(const ModTool::InstalledModule& module);

/// What a check of an installed module came to.
struct ModuleState
{
    QString summary; ///< "sound", "3 defects", "cannot be read"
    QString report;  ///< of the check, or why there was none
};

/// Checks a module. Takes up to a second for a large one.
ModuleState stateOf(const ModTool::InstalledModule& module);

} // namespace Kedrin::Add
