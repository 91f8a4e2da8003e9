#pragma once

#include "build_options.h"
#include "command.h"
#include "progress.h"
#include "source_format.h"

#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module build SOURCE MODULE-FOLDER` and `kedrin-module build --all-sword DIR`.
class CBuildCommand final : public ICommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    explicit CBuildCommand(CLI::App& program);

    bool isChosen() const override;
    std::string usageError() const override;
    int run(const CommandStreams& streams) const override;

private:
    /// @returns whether all went well; a Bible of --all-sword that fails is reported on `err`
    bool build(std::ostream& report, std::ostream& err, CProgress& progress) const;
    void addReadingOptions();

    CLI::App* m_command;
    std::string m_source;
    std::string m_folder;
    std::string m_allSwordDirectory;
    std::string m_copyrightFile;
    ReadOptions m_readOptions;
    BuildOptions m_options;
    bool m_verbose = false;
    bool m_quiet = false;
};

} // namespace Kedrin::ModTool
