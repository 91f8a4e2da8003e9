#pragma once

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

/// Lays out the help in the user's language: the columns are counted in characters, not bytes.
class CHelpFormatter : public CLI::Formatter
{
public:
    CHelpFormatter();

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
};

} // namespace Kedrin::ModTool
