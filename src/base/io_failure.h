#pragma once

#include <ios>
#include <string>
#include <system_error>

namespace ut {

/// A file that cannot be opened or read. The standard class appends text of its own to what(); a zero byte
/// ends the given text before it, so that what() is exactly the given text, even if the object is copied as
/// the standard class. It is also a std::runtime_error: where an operation wraps the exceptions of others,
/// catch std::exception, never std::runtime_error after it.
class CIoFailure : public std::ios_base::failure
{
public:
    explicit CIoFailure(const std::string& text) : std::ios_base::failure(text + '\0') {}
    /// @param systemError  errno of the failed call, returned by code(); 0: no system call failed
    CIoFailure(const std::string& text, int systemError)
        : std::ios_base::failure(text + '\0', std::error_code(systemError, std::generic_category()))
    {}
};

} // namespace ut
