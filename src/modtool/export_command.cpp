#include "export_command.h"

#include "durable_file.h"
#include "module_error.h"
#include "module_export.h"
#include "source_writers.h"

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

namespace {

constexpr const char* osis = "osis";
constexpr const char* verseLines = "verse-lines";

} // namespace

CExportCommand::CExportCommand(CLI::App& program)
    : m_command(program.add_subcommand("export", "Write a module as a source that build reads"))
{
    m_command->add_option("MODULE", m_module, "The module's folder")->required();
    m_command->add_option("FILE", m_file, "The file to write; standard output if none is named");
    m_command->add_option("--to", m_format, "The format: verse-lines or osis")
        ->required()
        ->check(CLI::IsMember({verseLines, osis}));
}

bool CExportCommand::isChosen() const { return m_command->parsed(); }

int CExportCommand::run(std::ostream& out, std::ostream& err) const
{
    try {
        const SourceBible bible = exportModule(CModuleReader(m_module));
        const std::string content = m_format == osis ? osisFile(bible) : verseLinesFile(bible);
        if (!m_file.empty()) {
            replaceDurably(m_file, content);
            return queryDone;
        }
        out << content;
        out.flush();
        if (!out)
            throw CModuleError("the output cannot be written");
        return queryDone;
    } catch (const std::exception& ex) {
        err << "kedrin-module: " << ex.what() << '\n';
        return queryTrouble;
    }
}

} // namespace Kedrin::ModTool
