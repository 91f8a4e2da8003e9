#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The program's messages in the user's language (language.h). In the sources they are English; bg.po has the
/// translations, and a test ensures that none is missing. Names of options, checks, files and formats, the
/// engine's own messages, and all of a run with --json are the same in every language.
namespace Kedrin::ModTool {

/// An argument of message(): text, or a number.
class CMessageArgument
{
public:
    CMessageArgument(std::string_view text) : m_text(text) {}
    CMessageArgument(const std::string& text) : m_text(text) {}
    CMessageArgument(const char* text) : m_text(text) {}
    CMessageArgument(std::integral auto number) : m_text(std::to_string(number)) {}

    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

/// `english` in the user's language, UTF-8; itself if there is no translation. Valid until the program ends.
const char* tr(const char* english);

/// Marks a text of a table for translation: tr() is called where it is used.
constexpr const char* translatable(const char* english) { return english; }

/// `format` with each "%s" replaced by an argument, in order or as "%2$s" says; "%%" is "%".
/// @throws std::runtime_error  there are fewer arguments than placeholders
std::string expanded(const char* format, std::span<const std::string> arguments);

/// tr(english), expanded with text and numbers.
template <typename... Arguments>
std::string message(const char* english, const Arguments&... arguments)
{
    const std::array<std::string, sizeof...(Arguments)> texts = {CMessageArgument(arguments).text()...};
    return expanded(tr(english), texts);
}

/// "1 verse", "2 verses"
std::string counted(std::uint64_t count, const char* singular, const char* plural);

/// Most bytes of a text from outside that a message shows.
inline constexpr std::size_t maxShownBytes = 40;

/// A text in quotation marks for a message, truncated after `maxBytes` bytes, on one line.
std::string inQuotes(std::string_view utf8, std::size_t maxBytes = maxShownBytes);

/// A text that a terminal takes for nothing but text: control characters other than line ends and tabs become \x1B and
/// the like.
std::string printable(std::string_view utf8);

/// The same for a name within a line: line ends and tabs become \x0A and \x09 too.
std::string printableName(std::string_view utf8);

} // namespace Kedrin::ModTool
