#pragma once

#include "query_command.h"

#include <string>

namespace Kedrin::ModTool {

/// `kedrin-module words MODULE [PREFIX] [--counts]`: the words of a module in its order, a line each.
class CWordsCommand final : public CQueryCommand
{
public:
    explicit CWordsCommand(CLI::App& program);

private:
    /// @returns a QueryExit: done, or nothing when no word begins so
    /// @throws CModuleError  the module's words cannot be read
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::string m_prefix;
    bool m_counts = false;
};

} // namespace Kedrin::ModTool
