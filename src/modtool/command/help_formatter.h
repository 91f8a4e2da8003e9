#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Kedrin::ModTool {

/// The name of a positional argument in the user's language; any other text unchanged.
std::string argumentName(const std::string& name);

/// Formats the help in the user's language; columns are counted in characters, not bytes.
class CHelpFormatter : public CLI::Formatter
{
public:
    CHelpFormatter();

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
};

} // namespace Kedrin::ModTool
