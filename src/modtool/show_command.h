#pragma once

#include "query_command.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// `kedrin-module show MODULE REFERENCE [--with MODULE]...`: verses of one module, a line each, or of several side by
/// side.
class CShowCommand final : public CQueryCommand
{
public:
    static constexpr unsigned int defaultWidth = 80;

    explicit CShowCommand(CLI::App& program);

private:
    /// @returns a QueryExit: done
    /// @throws CModuleError  a module cannot be read
    /// @throws CNotFound     what parseReference() throws
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::vector<std::string> m_reference; ///< as typed, word by word
    std::vector<std::string> m_others;
    unsigned int m_width = 0; ///< 0: the terminal's
};

} // namespace Kedrin::ModTool
