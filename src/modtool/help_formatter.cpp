#include "help_formatter.h"

#include "messages.h"

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t nameColumns = 30;

/// The name in its column, the description beside it; below it where the name is too long.
std::string row(const std::string& name, const std::string& description)
{
    const std::string cell = "  " + name;
    const std::string indent(nameColumns, ' ');
    const std::string left = padded(cell + ' ', nameColumns);
    if (description.empty())
        return cell + '\n';
    const bool fits = left == padded(cell, nameColumns);
    return (fits ? left : cell + '\n' + indent) +
           CLI::detail::find_and_replace(description, "\n", '\n' + indent) + '\n';
}

} // namespace

CHelpFormatter::CHelpFormatter()
{
    for (const char* word : {translatable("Usage"), translatable("OPTIONS"), translatable("SUBCOMMAND"),
                             translatable("Positionals"), translatable("TEXT"), translatable("UINT"),
                             translatable("REQUIRED"), translatable("Excludes"), translatable("MODULE")})
        label(word, tr(word));
}

std::string CHelpFormatter::make_group(std::string group, bool isPositional,
                                       std::vector<const CLI::Option*> options) const
{
    return Formatter::make_group(tr(group.c_str()), isPositional, options);
}

std::string CHelpFormatter::make_subcommand(const CLI::App* command) const
{
    return row(command->get_name(), command->get_description());
}

std::string CHelpFormatter::make_option(const CLI::Option* option, bool isPositional) const
{
    return row(make_option_name(option, isPositional) + make_option_opts(option), make_option_desc(option));
}

} // namespace Kedrin::ModTool
