#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module show MODULE REFERENCE [--with MODULE]...`: verses of one module, a line each, or of several side by
/// side.
class CShowCommand
{
public:
    static constexpr unsigned int defaultWidth = 80;

    explicit CShowCommand(CLI::App& program);

    bool isChosen() const;

    /// @returns a QueryExit: done
    /// @throws CModuleError  a module cannot be read
    /// @throws CNotFound     what parseReference() throws
    int run(std::ostream& out) const;

private:
    CLI::App* m_command;
    std::string m_module;
    std::vector<std::string> m_reference; ///< as typed, word by word
    std::vector<std::string> m_others;
    unsigned int m_width = 0; ///< 0: the terminal's
};

} // namespace Kedrin::ModTool
