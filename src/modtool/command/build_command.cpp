#include "all_sword.h"
#include "build.h"
#include "command.h"
#include "command_options.h"
#include "commands.h"
#include "errors.h"
#include "exit_codes.h"
#include "messages.h"
#include "module_folder.h"
#include "program.h"
#include "progress.h"
#include "source_options.h"

#include <sstream>
#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable(
    "The module is written to a separate folder and verified, and only then replaces the old one: a "
    "build that fails or\n"
    "is interrupted leaves the previous module untouched.\n"
    "\n"
    "Examples:\n"
    "  kedrin-module build my.txt modules/bibles/my --title 'My translation'\n"
    "  kedrin-module build sword:WEB modules/bibles/web --substitute\n"
    "  kedrin-module build --all-sword modules/bibles\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  the source was rejected, or something could not be read or written\n"
    "  2  invalid arguments\n"
    "  3  the report could not be written, or the part of the program with SWORD support is not installed");

/// `kedrin-module build SOURCE MODULE-FOLDER` and `kedrin-module build --all-sword DIR`.
class CBuildCommand final : public ICommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    CBuildCommand(CLI::App& program, const ISword& sword);

    bool isChosen() const override;
    std::string usageError() const override;
    int run(const CommandStreams& streams) const override;

private:
    /// @returns whether everything succeeded; a Bible of --all-sword that fails is reported on `err`
    bool build(std::ostream& report, std::ostream& err, IProgress& progress) const;

    CLI::App* m_command;
    const ISword& m_sword;
    std::string m_source;
    std::string m_folder;
    std::string m_allSwordDirectory;
    CSourceOptions m_options;
    bool m_substitute = false;
    bool m_verbose = false;
    bool m_quiet = false;
};

} // namespace

CBuildCommand::CBuildCommand(CLI::App& program, const ISword& sword)
    : m_command(addCommand(program, "build", "Build a Kedrin module from a Bible text in another format",
                           helpText)),
      m_sword(sword)
{
    addOption(*m_command, "SOURCE", m_source,
              tr("sword:NAME for an installed SWORD Bible; a file in any format of --from, - for standard "
                 "input; a zip archive of one; or a "
                 "folder of USFM, USX or JSON files or of plain lines"));
    addOption(*m_command, "MODULE-FOLDER", m_folder,
              tr("The module's folder, created or replaced as a "
                 "whole"));
    addOption(*m_command, "--all-sword", m_allSwordDirectory,
              tr("Build a module from every installed SWORD Bible, each in its own subfolder"))
        .typeName("DIR");
    addFlag(*m_command, "--substitute", m_substitute, tr("Replace characters that Windows-1251 lacks"));
    m_options.addTo(*m_command);
    addFlag(*m_command, "-v,--verbose", m_verbose, tr("Report where the source's letters and digits went"));
    addFlag(*m_command, "-q,--quiet", m_quiet, tr("No progress bar and no report"));
}

bool CBuildCommand::isChosen() const { return isParsed(*m_command); }

std::string CBuildCommand::usageError() const
{
    if (m_allSwordDirectory.empty())
        return m_source.empty() || m_folder.empty()
                   ? tr("build requires SOURCE and MODULE-FOLDER, or --all-sword DIR")
                   : "";
    const bool describesOne = !m_source.empty() || m_verbose || m_substitute || m_options.areGiven();
    return describesOne ? tr("--all-sword can be combined only with -q") : "";
}

int CBuildCommand::run(const CommandStreams& streams) const
{
    CTerminalProgress progress(m_quiet ? nullptr : streams.terminal);
    try {
        std::ostringstream nowhere;
        return build(m_quiet ? nowhere : streams.out, streams.err, progress) ? exitDone : exitFailed;
    } catch (const std::exception& ex) {
        progress.clear();
        return sayFailure(streams.err, ex);
    }
}

bool CBuildCommand::build(std::ostream& report, std::ostream& err, IProgress& progress) const
{
    if (!m_allSwordDirectory.empty())
        return buildAllSword(*m_sword.installedTexts(), m_allSwordDirectory, report, err, progress);
    for (const std::string& fileName : {m_source, m_options.copyrightFile()})
        if (!fileName.empty())
            checkOutside(fileName, m_folder);
    BuildOptions options = m_options.building();
    options.substitute = m_substitute;
    const BuildReport result = buildModule(readSource(m_source, m_options.reading(), m_sword, progress),
                                           m_folder, options, "", progress);
    progress.clear();
    report << result.text();
    if (m_verbose)
        report << result.letterAccount();
    return true;
}

std::unique_ptr<ICommand> makeBuildCommand(CLI::App& program, const ISword& sword)
{
    return std::make_unique<CBuildCommand>(program, sword);
}

} // namespace Kedrin::ModTool
