#pragma once

#include <ios>
#include <string>
#include <system_error>

namespace ut {

/// A file that cannot be opened or read. The standard class appends words of its own to what(); a zero byte ends the
/// text before them, so what() is exactly the text given, of a copy as the standard class too. It is a std::runtime_error
/// as well: where an operation wraps its inner failures, catch std::exception, never std::runtime_error after it.
class CIoFailure : public std::ios_base::failure
{
public:
    explicit CIoFailure(const std::string& text) : std::ios_base::failure(text + '\0') {}
    /// @param systemError  errno of what failed, which code() keeps; 0: the system refused nothing
    CIoFailure(const std::string& text, int systemError)
        : std::ios_base::failure(text + '\0', std::error_code(systemError, std::generic_category()))
    {}
};

} // namespace ut
