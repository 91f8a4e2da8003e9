#include "check_report.h"
#include "command.h"
#include "commands.h"

#include "command_options.h"
#include "errors.h"
#include "exit_codes.h"
#include "folder_names.h"
#include "installed_modules.h"
#include "language.h"
#include "messages.h"
#include "program.h"
#include "progress.h"
#include "usage_message.h"

#include <algorithm>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("A folder that contains any of a module's ten files is checked as a module; of any "
                 "other folder, each subfolder is.\n"
                 "Nothing is changed.\n"
                 "\n"
                 "Examples:\n"
                 "  kedrin-module check modules/bibles/my\n"
                 "  kedrin-module check --strict --places 20 modules/bibles\n"
                 "  kedrin-module check --ignore text-blanks --ignore markup-style modules/bibles/my\n"
                 "  kedrin-module check --list\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  sound: no errors (with --strict, no warnings either)\n"
                 "  1  defects found\n"
                 "  2  invalid arguments\n"
                 "  3  something could not be checked, or the report could not be written");

constexpr std::size_t defaultMaxPositions = 5;
constexpr std::size_t mostMaxPositions = 1000;

/// `kedrin-module check MODULE | MODULES-DIR` and `kedrin-module check --list`.
class CCheckCommand final : public ICommand
{
public:
    /// Adds the command and its options to the program's. The object outlives the parsing.
    explicit CCheckCommand(CLI::App& program);

    bool isChosen() const override;
    std::string usageError() const override;

    /// Checks and reports. What cannot be checked is reported on `err`; the rest is still checked.
    /// @returns exitDone: no errors (nor warnings, with --strict); exitFailed: some; exitTrouble: something could not
    ///          be checked
    int run(const CommandStreams& streams) const override;

private:
    int runChecks(const CommandStreams& streams, IProgress& progress) const;
    CheckReport check(IProgress& progress) const;
    void checkModuleInto(const std::string& folder, CheckReport& report) const;
    bool isWanted(CheckID check) const;

    CLI::App* m_command;
    std::string m_path;
    std::size_t m_maxPositions;
    std::vector<std::string> m_only;
    std::vector<std::string> m_ignored;
    bool m_list = false;
    bool m_json = false;
    bool m_strict = false;
    bool m_quiet = false;
};

} // namespace

CCheckCommand::CCheckCommand(CLI::App& program)
    : m_command(addCommand(program, "check", "Check a module, or all modules in a directory", helpText)),
      m_maxPositions(defaultMaxPositions)
{
    addOption(*m_command, "MODULE", m_path, tr("A module's folder, or a folder of modules"));
    addFlag(*m_command, "--list", m_list, tr("List the checks and check nothing"));
    addFlag(*m_command, "--json", m_json, tr("Print the report as JSON"));
    addFlag(*m_command, "--strict", m_strict, tr("Count warnings as defects"));
    addOption(*m_command, "--places", m_maxPositions,
              tr("How many positions to list for each finding "
                 "(default: 5)"))
        .range(0, mostMaxPositions)
        .text("N");
    addOption(*m_command, "--only", m_only,
              tr("Report only what this check finds; may be given several times"))
        .typeName("NAME")
        .takeOneEach();
    addOption(*m_command, "--ignore", m_ignored,
              tr("Do not report what this check finds; may be given several times"))
        .typeName("NAME")
        .takeOneEach();
    addFlag(*m_command, "-q,--quiet", m_quiet, tr("No progress bar and no report, only the exit code"));
}

namespace {

std::string unknownCheck(const std::string& name)
{
    std::vector<std::string> ids;
    for (const Check& check : checkTable())
        ids.emplace_back(check.id);
    const std::string like = namesLike(name, ids);
    return like.empty() ? message("no check is named \"%s\" (check --list lists them)", name)
                        : message("no check is named \"%s\" (did you mean %s?)", name, like);
}

} // namespace

bool CCheckCommand::isChosen() const { return isParsed(*m_command); }

std::string CCheckCommand::usageError() const
{
    for (const auto* names : {&m_only, &m_ignored})
        for (const std::string& name : *names)
            if (!checkNamed(name))
                return unknownCheck(name);
    return m_list == m_path.empty() ? "" : tr("check requires MODULE or --list, but not both");
}

int CCheckCommand::run(const CommandStreams& streams) const
{
    if (m_json)
        forceEnglish();
    CTerminalProgress progress(m_quiet ? nullptr : streams.terminal);
    try {
        return runChecks(streams, progress);
    } catch (const std::exception& ex) {
        progress.clear();
        sayFailure(streams.err, ex);
        return exitFailed;
    }
}

int CCheckCommand::runChecks(const CommandStreams& streams, IProgress& progress) const
{
    if (m_list) {
        streams.out << listOfChecks();
        return exitDone;
    }
    CheckReport report = check(progress);
    report.keepOnly([&](CheckID check) { return isWanted(check); });
    progress.clear();
    if (!m_quiet)
        streams.out << (m_json ? report.json() : report.text());
    for (const std::string& unchecked : report.unchecked)
        sayError(streams.err, unchecked);
    if (!report.unchecked.empty())
        return exitTrouble;
    const bool isSound =
        report.count(Severity::error) == 0 && (!m_strict || report.count(Severity::warning) == 0);
    return isSound ? exitDone : exitFailed;
}

CheckReport CCheckCommand::check(IProgress& progress) const
{
    CheckReport report;
    std::string path = m_path;
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    try {
        path = moduleFolder(path);
    } catch (const CModuleError& error) {
        report.unchecked.push_back(error.what());
        return report;
    }
    if (isModule(path)) {
        checkModuleInto(path, report);
        return report;
    }
    std::vector<std::string> folders;
    for (const std::string& name : subFolders(path))
        folders.push_back(std::string(path).append(1, '/').append(name));
    if (folders.empty()) {
        report.unchecked.push_back(
            message("%s: is neither a module nor a folder of modules", shownPath(path)));
        return report;
    }
    report.directory = {path, checkDirectory(path, folders, m_maxPositions)};
    for (std::size_t i = 0; i < folders.size(); ++i) {
        progress.show(tr("checking"), i, folders.size());
        checkModuleInto(folders[i], report);
    }
    return report;
}

bool CCheckCommand::isWanted(CheckID check) const
{
    const auto isIn = [&](const std::vector<std::string>& names) {
        return std::find(names.begin(), names.end(), checkOf(check).id) != names.end();
    };
    return (m_only.empty() || isIn(m_only)) && !isIn(m_ignored);
}

void CCheckCommand::checkModuleInto(const std::string& folder, CheckReport& report) const
{
    try {
        report.modules.push_back(checkModule(folder, m_maxPositions));
    } catch (const CCheckError& error) {
        report.unchecked.push_back(error.what());
    }
}

std::unique_ptr<ICommand> makeCheckCommand(CLI::App& program)
{
    return std::make_unique<CCheckCommand>(program);
}

} // namespace Kedrin::ModTool
