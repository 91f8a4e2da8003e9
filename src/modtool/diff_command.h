#pragma once

#include "query_command.h"

#include <string>

namespace Kedrin::ModTool {

/// `kedrin-module diff MODULE OTHER [--count]`: the verses in which two modules differ.
class CDiffCommand final : public CQueryCommand
{
public:
    explicit CDiffCommand(CLI::App& program);

private:
    /// @returns a QueryExit: done when all verses are the same, nothing when any differs
    /// @throws CModuleError  a module cannot be read
    int answer(std::ostream& out) const override;

    std::string m_first;
    std::string m_second;
    bool m_count = false;
};

} // namespace Kedrin::ModTool
