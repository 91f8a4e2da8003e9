#include "build_command.h"

#include "all_sword.h"
#include "build.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace Kedrin::ModTool {

CBuildCommand::CBuildCommand(CLI::App& program)
    : m_command(
          program.add_subcommand("build", "Build a module for the reader from a Bible in another format"))
{
    m_command->add_option("SOURCE", m_source,
                          "sword:NAME, an installed SWORD Bible, or a text file with a verse a line");
    m_command->add_option("MODULE-FOLDER", m_folder, "The module's folder, made or replaced as a whole");
    m_command->add_option("--all-sword", m_allSwordDirectory,
                          "Build every installed SWORD Bible into a folder of this directory");
    m_command->add_flag("--substitute", m_options.substitute,
                        "Replace the characters that Windows-1251 lacks");
    m_command->add_option("--title", m_options.fullTitle, "Full title");
    m_command->add_option("--short", m_options.shortTitle, "Short title");
    m_command->add_option("--abbr", m_options.abbreviatedTitle, "Abbreviated title");
    m_command->add_option("--versification", m_options.versification,
                          "Versification of the source, by its SWORD name");
    m_command->add_flag("-q,--quiet", m_quiet, "No progress bar and no report");
}

bool CBuildCommand::isChosen() const { return m_command->parsed(); }

std::string CBuildCommand::usageError() const
{
    if (m_allSwordDirectory.empty())
        return m_source.empty() || m_folder.empty()
                   ? "build needs SOURCE and MODULE-FOLDER, or --all-sword DIR"
                   : "";
    const bool describesOne = !m_source.empty() || m_options.substitute || !m_options.fullTitle.empty() ||
                              !m_options.shortTitle.empty() || !m_options.abbreviatedTitle.empty() ||
                              !m_options.versification.empty();
    return describesOne ? "--all-sword goes with no other argument than -q" : "";
}

bool CBuildCommand::run(std::ostream& out, std::ostream& err, CProgress& progress) const
{
    std::ostringstream nowhere;
    std::ostream& report = m_quiet ? nowhere : out;
    if (!m_allSwordDirectory.empty())
        return buildAllSword(m_allSwordDirectory, report, err, progress);
    const BuildReport result = buildModule(readSource(m_source, progress), m_folder, m_options, "", progress);
    progress.clear();
    report << result.text();
    return true;
}

} // namespace Kedrin::ModTool
