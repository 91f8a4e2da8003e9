#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// What a reader sees of a stored verse: Windows-1251 with markup in, plain UTF-8 out. As the window does, it
/// ends at the first zero byte. Tags and comments go (a tag that breaks a line leaves a blank), numeric character
/// references and the names of HTML become their characters; an unknown
/// name, and a "<" or "&" that begins nothing, stay as they are. Control characters and white space become blanks, of
/// several one, of those at the ends none, so that the result is one line and harmless on a terminal.
std::string plainText(std::string_view stored);

/// The same of a title, a word or a line of copyright, which hold no markup.
std::string plainLine(std::string_view stored);

} // namespace Kedrin::ModTool
