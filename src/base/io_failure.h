#pragma once

#include <ios>
#include <string>

namespace ut {

/// A file that cannot be opened or read. The standard class appends words of its own to what(); this one gives
/// exactly the text it was made with. It is a std::runtime_error as well: where an operation wraps its inner
/// failures, catch std::exception, never std::runtime_error after it.
class CIoFailure : public std::ios_base::failure
{
public:
    explicit CIoFailure(const std::string& text) : std::ios_base::failure(text), m_text(text) {}
    const char* what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

} // namespace ut
