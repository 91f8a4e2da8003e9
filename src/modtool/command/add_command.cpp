#include "add_module.h"
#include "build.h"
#include "command.h"
#include "command_options.h"
#include "commands.h"
#include "errors.h"
#include "exit_codes.h"
#include "messages.h"
#include "progress.h"
#include "source_options.h"

#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable(
    "The module is built in $XDG_DATA_HOME/kedrin/modules/bibles (usually "
    "~/.local/share/kedrin/modules/bibles); the "
    "reader\n"
    "shows it beside those installed for all users. Characters that Windows-1251 lacks are replaced and "
    "reported;\n"
    "a text in another script is rejected.\n"
    "\n"
    "Examples:\n"
    "  kedrin-module add bg-1940.txt\n"
    "  kedrin-module add translation.xml --as my --title 'My translation' --first\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  the source was rejected, or something could not be read or written\n"
    "  2  invalid arguments\n"
    "  3  the report could not be written, or the part of the program with SWORD support is not installed");

/// `kedrin-module add SOURCE`: builds a module among the user's own.
class CAddCommand final : public ICommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    CAddCommand(CLI::App& program, const ISword& sword);

    bool isChosen() const override { return isParsed(*m_command); }
    int run(const CommandStreams& streams) const override;

private:
    AddedModule add(IProgress& progress) const;

    CLI::App* m_command;
    const ISword& m_sword;
    std::string m_source;
    std::string m_name;
    CSourceOptions m_options;
    bool m_isFirst = false;
    bool m_mayReplace = false;
    bool m_quiet = false;
};

} // namespace

CAddCommand::CAddCommand(CLI::App& program, const ISword& sword)
    : m_command(addCommand(program, "add", "Add a Bible text to your own modules", helpText)),
      m_sword(sword)
{
    addOption(*m_command, "SOURCE", m_source, tr("The text, as build takes it")).require();
    addOption(*m_command, "--as", m_name, tr("Name of the module (default: from the source's name)"))
        .typeName("NAME");
    addFlag(*m_command, "--first", m_isFirst, tr("List it first, so that the reader opens it first"));
    addFlag(*m_command, "--replace", m_mayReplace, tr("Replace the module that has this name"));
    m_options.addTo(*m_command);
    addFlag(*m_command, "-q,--quiet", m_quiet, tr("No progress bar and no report"));
}

int CAddCommand::run(const CommandStreams& streams) const
{
    CTerminalProgress progress(m_quiet ? nullptr : streams.terminal);
    try {
        const AddedModule added = add(progress);
        progress.clear();
        if (!m_quiet)
            streams.out << added.text();
        return exitDone;
    } catch (const std::exception& ex) {
        progress.clear();
        return sayFailure(streams.err, ex);
    }
}

AddedModule CAddCommand::add(IProgress& progress) const
{
    AddOptions options;
    options.isFirst = m_isFirst;
    options.mayReplace = m_mayReplace;
    options.build = m_options.building();
    options.build.substitute = true;
    options.build.refuseUnfitText = true;
    const SourceBible bible = readSource(m_source, m_options.reading(), m_sword, progress);
    options.name = isGiven(*m_command, "--as") ? m_name : defaultModuleName(m_source, bible.info);
    return addModule(bible, options, progress);
}

std::unique_ptr<ICommand> makeAddCommand(CLI::App& program, const ISword& sword)
{
    return std::make_unique<CAddCommand>(program, sword);
}

} // namespace Kedrin::ModTool
