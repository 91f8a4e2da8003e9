#pragma once

#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module export MODULE [FILE] --to verse-lines|osis`: a module as a source that can be built again.
class CExportCommand
{
public:
    explicit CExportCommand(CLI::App& program);

    bool isChosen() const;

    /// Writes the file, or to `out` where none is named. An error is a line on `err`. A file that is there is replaced
    /// in one step.
    /// @returns a QueryExit
    int run(std::ostream& out, std::ostream& err) const;

private:
    CLI::App* m_command;
    std::string m_module;
    std::string m_file;
    std::string m_format;
};

} // namespace Kedrin::ModTool
