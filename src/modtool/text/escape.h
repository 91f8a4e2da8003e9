#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Length of the escaped text.
std::size_t escapedSize(std::string_view text);

/// Appends the text as a module stores it: verses are shown as markup, so `<`, `>` and `&` of the text become
/// `&lt;`, `&gt;` and `&amp;`.
void appendEscaped(std::string_view text, std::string& out);

/// The text of a stored verse: what appendEscaped() was given.
std::string unescaped(std::string_view stored);

} // namespace Kedrin::ModTool
