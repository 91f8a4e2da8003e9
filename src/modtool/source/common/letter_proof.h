#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Compares the letters and digits that a reader took from a source, in source order, with those found by a
/// second, simpler pass over the source. Detects what the reader dropped or changed without counting it.
class CLetterProof
{
public:
    /// @param fileName  for messages
    /// @param taken     letters of all text that the reader used or counted, from appendLetters(); must
    ///                  outlive this object
    CLetterProof(const std::string& fileName, std::string_view taken) : m_fileName(fileName), m_rest(taken) {}

    /// The next text of the source.
    /// @param line  where it begins, from 1
    /// @throws CBuildError  "%s:%u: the source has %s here, but %s was read; this is a bug in kedrin-module,
    ///                      please report it", with some letters of each
    void compare(std::string_view utf8, std::size_t line);

    /// The same for a text with character references, which are resolved; its tags are text.
    /// @throws CBuildError  as compare()
    void compareMarkedText(std::string_view utf8, std::size_t line);

    /// The end of the source.
    /// @throws CBuildError  the same, where the reader has more
    /// @returns the letters and digits of the source
    std::uint64_t finish(std::size_t line);

private:
    [[noreturn]] void fail(std::string_view letters, std::size_t line) const;

    const std::string& m_fileName;
    std::string_view m_rest;
    std::uint64_t m_count = 0;
};

} // namespace Kedrin::ModTool
