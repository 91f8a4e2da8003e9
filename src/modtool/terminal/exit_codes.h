#pragma once

namespace Kedrin::ModTool {

/// Exit codes of kedrin-module.
enum ExitCode
{
    /// Done; `check`: sound; `show`, `search`, `words`: found; `diff`: the same.
    exitDone = 0,
    /// `build`: refused; `check`: defects; `show`, `search`, `words`: nothing found; `diff`: differences.
    exitFailed = 1,
    exitUsage = 2,   ///< invalid arguments
    exitTrouble = 3, ///< something could not be read or checked, or the output could not be written
};

} // namespace Kedrin::ModTool
