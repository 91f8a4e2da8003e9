#pragma once

#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// The character that a character reference of HTML stands for; `&` and `;` left out: "lt", "#1073", "#x431".
/// @returns nothing for a name that HTML 4 does not know, and for a number that is no character
std::optional<char32_t> referencedCharacter(std::string_view reference);

} // namespace Kedrin::ModTool
