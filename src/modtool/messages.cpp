#include "messages.h"

#include "language.h"

#include <fmt/args.h>
#include <fmt/printf.h>

#include <libintl.h>

#include <algorithm>

namespace Kedrin::ModTool {

const char* tr(const char* english) { return ::dgettext(messageDomain, english); }

std::string expanded(const char* format, std::span<const std::string> arguments)
{
    fmt::dynamic_format_arg_store<fmt::printf_context> store;
    for (const std::string& argument : arguments)
        store.push_back(argument);
    return fmt::vsprintf(fmt::string_view(format), fmt::basic_format_args<fmt::printf_context>(store));
}

std::string counted(std::uint64_t count, const char* singular, const char* plural)
{
    return std::to_string(count) + ' ' + ::dngettext(messageDomain, singular, plural, count);
}

std::size_t charactersIn(std::string_view utf8)
{
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), begins));
}

std::string padded(const std::string& utf8, std::size_t columns)
{
    return utf8 + std::string(columns - std::min(columns, charactersIn(utf8)), ' ');
}

} // namespace Kedrin::ModTool
