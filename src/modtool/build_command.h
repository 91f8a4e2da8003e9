#pragma once

#include "build_options.h"
#include "progress.h"
#include "source_format.h"

#include <ostream>
#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// `kedrin-module build SOURCE MODULE-FOLDER` and `kedrin-module build --all-sword DIR`.
class CBuildCommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    explicit CBuildCommand(CLI::App& program);

    bool isChosen() const;

    /// What the parser cannot tell: "" or a sentence on what is wrong with the arguments.
    std::string usageError() const;

    /// @returns whether all went well; a Bible of --all-sword that fails is reported on `err`
    /// @throws CBuildError
    bool run(std::ostream& out, std::ostream& err, CProgress& progress) const;

    bool isQuiet() const { return m_quiet; }

private:
    void addReadingOptions();

    CLI::App* m_command;
    std::string m_source;
    std::string m_folder;
    std::string m_allSwordDirectory;
    std::string m_copyrightFile;
    ReadOptions m_readOptions;
    BuildOptions m_options;
    bool m_quiet = false;
};

} // namespace Kedrin::ModTool
