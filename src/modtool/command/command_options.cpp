#include "command_options.h"

#include "messages.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace Kedrin::ModTool {

const COption& COption::require() const
{
    m_option->required();
    return *this;
}

const COption& COption::typeName(const char* name) const
{
    m_option->type_name(name);
    return *this;
}

const COption& COption::text(const char* text) const
{
    m_option->option_text(text);
    return *this;
}

const COption& COption::takeOneEach() const
{
    m_option->allow_extra_args(false);
    return *this;
}

const COption& COption::range(std::size_t least, std::size_t most) const
{
    m_option->check(CLI::Range(least, most));
    return *this;
}

const COption& COption::oneOf(const std::vector<std::string>& values) const
{
    m_option->check(CLI::IsMember(values));
    return *this;
}

const COption& COption::excludes(const COption& other) const
{
    m_option->excludes(other.m_option);
    return *this;
}

CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const char* helpText)
{
    CLI::App* command = program.add_subcommand(name, tr(description));
    command->group(tr("Subcommands"));
    command->footer(tr(helpText));
    return command;
}

COption addFlag(CLI::App& command, const char* names, bool& variable, const char* description)
{
    return COption(command.add_flag(names, variable, description));
}

COption addOption(CLI::App& command, const char* names, std::string& variable, const char* description)
{
    return COption(command.add_option(names, variable, description));
}

COption addOption(CLI::App& command, const char* names, std::size_t& variable, const char* description)
{
    return COption(command.add_option(names, variable, description));
}

COption addOption(CLI::App& command, const char* names, unsigned int& variable, const char* description)
{
    return COption(command.add_option(names, variable, description));
}

COption addOption(CLI::App& command, const char* names, std::vector<std::string>& variable,
                  const char* description)
{
    return COption(command.add_option(names, variable, description));
}

COption addOption(CLI::App& command, const char* name,
                  std::function<std::string(const std::string& value)> function, const char* description)
{
    const auto take = [name, function = std::move(function)](const std::string& value) {
        if (const std::string wrong = function(value); !wrong.empty())
            throw CLI::ValidationError(name, wrong);
    };
    return COption(command.add_option_function<std::string>(name, take, description));
}

bool isParsed(const CLI::App& command) { return command.parsed(); }

bool isGiven(const CLI::App& command, const char* name) { return command.count(name) != 0; }

} // namespace Kedrin::ModTool
