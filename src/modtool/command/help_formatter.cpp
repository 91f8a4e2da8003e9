#include "help_formatter.h"

#include "messages.h"
#include "text_columns.h"

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t nameColumns = 30;

/// The name in its column and the description beside it, or below if the name is too long.
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
                             translatable("Positionals"), translatable("Options"), translatable("TEXT"),
                             translatable("DIR"), translatable("NAME")})
        label(word, tr(word));
}

std::string argumentName(const std::string& name)
{
    for (const char* known :
         {translatable("SOURCE"), translatable("MODULE-FOLDER"), translatable("MODULE"),
          translatable("OTHER"), translatable("REFERENCE"), translatable("TEXT"), translatable("PREFIX"),
          translatable("FILE"), translatable("NAME"), translatable("CODE"), translatable("REPOSITORY")})
        if (name == known)
            return tr(known);
    return name;
}

std::string CHelpFormatter::make_option_name(const CLI::Option* option, bool isPositional) const
{
    const std::string name = Formatter::make_option_name(option, isPositional);
    return isPositional ? argumentName(name) : name;
}

std::string CHelpFormatter::make_group(std::string group, bool isPositional,
                                       std::vector<const CLI::Option*> options) const
{
    return Formatter::make_group(get_label(group), isPositional, options);
}

std::string CHelpFormatter::make_subcommand(const CLI::App* command) const
{
    return row(command->get_name(), command->get_description());
}

std::string CHelpFormatter::make_option(const CLI::Option* option, bool isPositional) const
{
    const std::string value = isPositional ? "" : make_option_opts(option);
    return row(make_option_name(option, isPositional) + value, make_option_desc(option));
}

/// What follows an option's name: its value. Requirements and exclusions are not shown.
std::string CHelpFormatter::make_option_opts(const CLI::Option* option) const
{
    if (!option->get_option_text().empty())
        return ' ' + option->get_option_text();
    const bool hasValue = option->get_type_size() != 0 && !option->get_type_name().empty();
    return hasValue ? ' ' + argumentName(get_label(option->get_type_name())) : "";
}

} // namespace Kedrin::ModTool
