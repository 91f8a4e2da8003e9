#pragma once

#include "text_matcher.h"

#include <memory>
#include <string>

namespace Kedrin::ModTool {

/// Finds a regular expression of the Unicode library (Perl's syntax, with \p{…} and \b for all scripts).
/// matches() throws CNotFound  "the expression takes too long": for expressions whose time grows with a power of the
///                             text's length
/// @throws CNotFound  "\"%s\" is not a regular expression (at character %u)"
std::unique_ptr<ITextMatcher> makeRegexMatcher(const std::string& expression, bool byCase);

} // namespace Kedrin::ModTool
