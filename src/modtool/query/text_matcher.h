#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Bytes of a text: from `begin` to before `end`.
struct TextSpan
{
    std::size_t begin;
    std::size_t end;

    bool operator==(const TextSpan&) const = default;
};

/// Finds what is searched for in a verse as users see it.
class ITextMatcher
{
public:
    virtual ~ITextMatcher() = default;

    /// What is found, from left to right; nothing overlaps. Only an expression that matches an empty text finds such.
    /// @param utf8  valid
    virtual std::vector<TextSpan> matches(std::string_view utf8) const = 0;
};

/// makeRegexMatcher(), for those who must do without its library.
using RegexMaker = std::unique_ptr<ITextMatcher> (*)(const std::string& expression, bool byCase);

/// Finds any of several texts.
/// @param byCase      else without regard to case
/// @param wholeWords  only where no letter or digit stands on either side
std::unique_ptr<ITextMatcher> makeWordMatcher(const std::vector<std::string>& texts, bool byCase,
                                              bool wholeWords);

} // namespace Kedrin::ModTool
