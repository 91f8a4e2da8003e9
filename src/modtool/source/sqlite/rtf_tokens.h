#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A part of a text in RTF, which it views.
struct RtfToken
{
    enum class Kind
    {
        text,
        open,
        close,
        escape,  ///< \'e1
        control, ///< \cf6, with the space that ends it
        symbol   ///< \~
    };

    Kind kind;
    std::string_view bytes;
    std::string_view word = {};     ///< of a control
    std::optional<int> number = {}; ///< of a control
    unsigned char byte = 0;         ///< of an escape
};

/// Takes the first token off the text, which is not empty. Every text consists of tokens.
RtfToken takeRtfToken(std::string_view& rtf);

/// The byte of the escape at the start of the text, or nullopt.
std::optional<unsigned char> escapedByte(std::string_view rtf);

/// The control word at the start of the text, which begins with a backslash and a letter.
RtfToken controlAt(std::string_view rtf);

/// The UTF-8 of the character that a control \u has as its number, which may be negative; a half of a pair is U+FFFD.
std::string unicodeCharacter(int number);

/// What the word of a control, or a symbol with its backslash, stands for: "" for none.
std::string_view rtfCharacter(std::string_view name);

} // namespace Kedrin::ModTool
