#pragma once

#include "query_command.h"

#include <string>

namespace Kedrin::ModTool {

/// `kedrin-module export MODULE [FILE] --to verse-lines|osis`: a module as a source that can be built again.
class CExportCommand final : public CQueryCommand
{
public:
    explicit CExportCommand(CLI::App& program);

private:
    /// Writes the file, or to `out` where none is named. A file that is there is replaced in one step.
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::string m_file;
    std::string m_format;
};

} // namespace Kedrin::ModTool
