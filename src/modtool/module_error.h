#pragma once

#include <stdexcept>
#include <string>

namespace Kedrin::ModTool {

/// A module cannot be read, or its files disagree: one sentence that names the file or the folder.
class CModuleError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// What the user asks for is not there, or cannot be understood: one sentence that quotes it.
class CNotFound : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Exit codes of the commands that read a module.
enum QueryExit
{
    queryDone = 0,    ///< found; without difference
    queryNothing = 1, ///< nothing found, or the request is refused; for a comparison: there are differences
    queryTrouble = 3  ///< a module cannot be read, or the output cannot be written
};

} // namespace Kedrin::ModTool
