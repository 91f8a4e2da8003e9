#pragma once

#include "query_command.h"

#include <string>

namespace Kedrin::ModTool {

/// `kedrin-module info MODULE [--json]`: what a module says of itself, and what it holds.
class CInfoCommand final : public CQueryCommand
{
public:
    explicit CInfoCommand(CLI::App& program);

private:
    /// @returns a QueryExit: done
    /// @throws CModuleError  the module cannot be read
    int answer(std::ostream& out) const override;

    std::string m_module;
    bool m_json = false;
};

} // namespace Kedrin::ModTool
