#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varied_test {

/// The messages that the pages of doc/ name, in which %s and %u stand for anything.
class CDocumentedMessages
{
public:
    /// @param folder  doc/ of the sources
    explicit CDocumentedMessages(const std::string& folder);

    /// The first line that no page names; "" if there is none.
    /// @param errors  what the program wrote to standard error
    std::string firstUndocumented(std::string_view errors) const;

private:
    std::vector<std::string> m_patterns;
};

} // namespace varied_test
