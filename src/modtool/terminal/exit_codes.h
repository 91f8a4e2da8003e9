#pragma once

namespace Kedrin::ModTool {

/// Exit codes of kedrin-module.
enum ExitCode
{
    exitDone = 0,    ///< done; `check`: sound; `show`, `search`, `words`: found; `diff`: the same
    exitFailed = 1,  ///< `build`: refused; `check`: defects; `show`, `search`, `words`: nothing found; `diff`: differences
    exitUsage = 2,   ///< invalid arguments
    exitTrouble = 3, ///< something could not be read or checked, or the output could not be written
};

} // namespace Kedrin::ModTool
