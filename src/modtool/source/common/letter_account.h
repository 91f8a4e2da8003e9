#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace Kedrin::ModTool {

/// The letters and digits of all texts that a reader gives.
class CGivenLetters
{
public:
    /// @returns how many the text has
    std::uint64_t add(std::string_view utf8);

    std::uint64_t count() const { return m_count; }

    /// The letters and digits themselves, in their order, since the last call.
    std::string take() { return std::exchange(m_letters, {}); }

private:
    std::string m_letters;
    std::uint64_t m_count = 0;
};

/// The letters and digits of a text that grows at its end, each counted once, however often they are asked for.
class CGrowingText
{
public:
    std::uint64_t lettersOf(std::string_view utf8);

private:
    std::size_t m_byteCount = 0; ///< counted so far
    std::uint64_t m_letters = 0;
};

} // namespace Kedrin::ModTool
