#pragma once

#include <exception>
#include <string>

namespace Kedrin::ModTool {

/// " (Too many open files)": why the system refused a file that is there; "" where the file is missing or no reason is
/// known.
/// @param error  errno
std::string systemReason(int error);

/// The message, and the system's reason where it is that of a file which could not be opened, or where errno says that the
/// process has too many open: the engine's message about a module names only the file.
std::string withSystemReason(const std::exception& failure);

} // namespace Kedrin::ModTool
