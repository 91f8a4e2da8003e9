#include "commands.h"

#include "command.h"
#include "command_options.h"
#include "durable_file.h"
#include "errors.h"
#include "exit_codes.h"
#include "installed_modules.h"
#include "messages.h"
#include "module_export.h"
#include "osis_writer.h"
#include "verse_lines_writer.h"

#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("Building from the exported file gives the same module, byte for byte.\n"
                 "\n"
                 "Examples:\n"
                 "  kedrin-module export modules/bibles/my my.txt --to verse-lines\n"
                 "  kedrin-module export modules/bibles/my --to osis > my.xml\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  done\n"
                 "  2  invalid arguments\n"
                 "  3  the module cannot be read, or the file cannot be written");

constexpr const char* osis = "osis";
constexpr const char* verseLines = "verse-lines";

/// `kedrin-module export MODULE [FILE] --to verse-lines|osis`: a module as a source from which it can be
/// rebuilt.
class CExportCommand final : public CQueryCommand
{
public:
    explicit CExportCommand(CLI::App& program);

private:
    /// Writes the file, or to `out` if none is named. An existing file is replaced atomically.
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::string m_file;
    std::string m_format;
};

} // namespace

CExportCommand::CExportCommand(CLI::App& program)
    : CQueryCommand(addCommand(program, "export", "Export a module to a file that build can read", helpText))
{
    addOption(*m_command, "MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        .require();
    addOption(*m_command, "FILE", m_file, tr("The file to write (default: standard output)"));
    addOption(*m_command, "--to", m_format, tr("Format of the file"))
        .require()
        .oneOf({verseLines, osis})
        .text("verse-lines|osis");
}

int CExportCommand::answer(std::ostream& out) const
{
    const SourceBible bible = exportModule(CModuleReader(moduleFolder(m_module)));
    const std::string content = m_format == osis ? osisFile(bible) : verseLinesFile(bible);
    if (m_file.empty())
        out << content;
    else
        replaceDurably(m_file, content);
    return exitDone;
}

std::unique_ptr<ICommand> makeExportCommand(CLI::App& program)
{
    return std::make_unique<CExportCommand>(program);
}

} // namespace Kedrin::ModTool
