#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The lines of a file that cannot be read, all of them counted and the first of them described.
class CBadLines
{
public:
    /// @param reason  called only for the lines that are described
    void add(std::size_t line, const std::function<std::string()>& reason);

    /// @throws CBuildError  "%s: %s cannot be read:", then a line for each of the first twenty ("  line %s:
    ///                      %s") and "  and %s more" for the others
    void refuse(const std::string& fileName) const;

private:
    std::string m_described;
    std::size_t m_count = 0;
};

/// "\"%s\" is not a known book", with "(did you mean %s?)" if a known name is similar.
std::string unknownBook(std::string_view name);

} // namespace Kedrin::ModTool
