#include "messages.h"

#include "language.h"

#include <fmt/args.h>
#include <fmt/printf.h>

#include <libintl.h>
#include <unicode/utf8.h>

namespace Kedrin::ModTool {

namespace {

/// With its zero bytes as printable() has them: the text of an exception would end at the first.
std::string withoutZeros(const std::string& text)
{
    std::string shown;
    for (const char c : text)
        c == '\0' ? shown += "\\x00" : shown += c;
    return shown;
}

/// @param kept  control characters that stay
std::string withoutControls(std::string_view utf8, std::string_view kept)
{
    constexpr unsigned char leadOfC1 = 0xC2; // U+0080 to U+009F are C2 80 to C2 9F
    std::string text;
    unsigned char before = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isC1 = before == leadOfC1 && byte >= 0x80 && byte < 0xA0;
        const bool isControl =
            (byte < 0x20 && kept.find(c) == std::string_view::npos) || byte == 0x7F || isC1;
        if (isC1)
            text.pop_back();
        text += isControl ? fmt::sprintf("\\x%02X", byte) : std::string(1, c);
        before = byte;
    }
    return text;
}

} // namespace

const char* tr(const char* english) { return ::dgettext(messageDomain, english); }

std::string expanded(const char* format, std::span<const std::string> arguments)
{
    fmt::dynamic_format_arg_store<fmt::printf_context> store;
    for (const std::string& argument : arguments)
        store.push_back(withoutZeros(argument));
    return fmt::vsprintf(fmt::string_view(format), fmt::basic_format_args<fmt::printf_context>(store));
}

std::string counted(std::uint64_t count, const char* singular, const char* plural)
{
    return std::to_string(count) + ' ' + ::dngettext(messageDomain, singular, plural, count);
}

std::string inQuotes(std::string_view utf8, std::size_t maxBytes)
{
    const bool isLong = utf8.size() > maxBytes;
    if (isLong) {
        auto end = static_cast<std::int32_t>(maxBytes);
        U8_SET_CP_START(reinterpret_cast<const std::uint8_t*>(utf8.data()), 0, end);
        utf8 = utf8.substr(0, static_cast<std::size_t>(end));
    }
    std::string text;
    for (const char c : utf8)
        c == '\n' ? text += "\\x0A" : text += c;
    return message("\"%s\"", text + (isLong ? "..." : ""));
}

std::string printable(std::string_view utf8) { return withoutControls(utf8, "\n\t"); }

std::string printableName(std::string_view utf8) { return withoutControls(utf8, {}); }

} // namespace Kedrin::ModTool
