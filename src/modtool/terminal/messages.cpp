#include "messages.h"

#include "language.h"

#include <fmt/args.h>
#include <fmt/printf.h>

#include <libintl.h>
#include <unicode/utf8.h>

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

std::string inQuotes(std::string_view utf8, std::size_t maxBytes)
{
    if (utf8.size() <= maxBytes)
        return message("\"%s\"", utf8);
    auto end = static_cast<std::int32_t>(maxBytes);
    U8_SET_CP_START(reinterpret_cast<const std::uint8_t*>(utf8.data()), 0, end);
    return message("\"%s\"", std::string(utf8.substr(0, static_cast<std::size_t>(end))) + "...");
}

} // namespace Kedrin::ModTool
