#include "add_module.h"
#include "ascii.h"
#include "command.h"
#include "command_options.h"
#include "commands.h"
#include "errors.h"
#include "exit_codes.h"
#include "language.h"
#include "messages.h"
#include "progress.h"
#include "repository_output.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable(
    "Without arguments the repositories are listed that are configured for SWORD. This is the only command "
    "that uses the\n"
    "network, and it asks before it does; a folder needs no network.\n"
    "The text is kept in $XDG_DATA_HOME/kedrin/sword (usually ~/.local/share/kedrin/sword), the module is "
    "built as add\n"
    "does.\n"
    "\n"
    "Examples:\n"
    "  kedrin-module get --list --language bg --repository https://example.org/sword\n"
    "  kedrin-module get BG1940 --repository https://example.org/sword --first\n"
    "  kedrin-module get WEB --repository /media/texts\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  nothing of that name is offered, the text was rejected, or something could not be read or written\n"
    "  2  invalid arguments\n"
    "  3  the output could not be written, or the part of the program with SWORD support is not installed");

/// `kedrin-module get [NAME | --list]`: texts of SWORD repositories.
class CGetCommand final : public ICommand
{
public:
    CGetCommand(CLI::App& program, const ISword& sword);

    bool isChosen() const override { return isParsed(*m_command); }
    std::string usageError() const override;
    int run(const CommandStreams& streams) const override;

private:
    int runWith(const ISwordRepositories& library, const CommandStreams& streams, IProgress& progress) const;
    std::vector<SwordRepository> chosen(const ISwordRepositories& library) const;
    void askForNetwork(const std::vector<SwordRepository>& repositories, const CommandStreams& streams) const;
    int list(const ISwordRepositories& library, const std::vector<SwordRepository>& repositories,
             const CommandStreams& streams, IProgress& progress) const;
    void add(const ISwordRepositories& library, const std::vector<SwordRepository>& repositories,
             std::ostream& out, IProgress& progress) const;
    std::unique_ptr<IFetchedText> fetch(const ISwordRepositories& library,
                                        const std::vector<SwordRepository>& repositories,
                                        IProgress& progress) const;

    CLI::App* m_command;
    const ISword& m_sword;
    std::string m_text;
    std::string m_name;
    std::string m_language;
    std::vector<std::string> m_repositories;
    bool m_list = false;
    bool m_isFirst = false;
    bool m_mayReplace = false;
    bool m_mayUseNetwork = false;
    bool m_json = false;
    bool m_quiet = false;
};

bool isYes(const std::string& answer)
{
    constexpr std::array<const char*, 8> words = {"y", "Y", "yes", "Yes", "д", "Д", "да", "Да"};
    return std::find(words.begin(), words.end(), answer) != words.end();
}

} // namespace

CGetCommand::CGetCommand(CLI::App& program, const ISword& sword)
    : m_command(addCommand(program, "get", "List and add the Bibles of a SWORD repository", helpText)),
      m_sword(sword)
{
    addOption(*m_command, "NAME", m_text, tr("The Bible's name, as --list shows it"));
    addFlag(*m_command, "--list", m_list, tr("List the Bibles that are offered"));
    addOption(*m_command, "--language", m_language, tr("List only those in this language (bg, en, ...)"))
        .typeName("CODE");
    addOption(*m_command, "--repository", m_repositories,
              tr("A known repository's name, an address, or a folder (default: all known ones); may be "
                 "given several times"))
        .typeName("REPOSITORY")
        .takeOneEach();
    addOption(*m_command, "--as", m_name, tr("Name of the module (default: from the source's name)"))
        .typeName("NAME");
    addFlag(*m_command, "--first", m_isFirst, tr("List it first, so that the reader opens it first"));
    addFlag(*m_command, "--replace", m_mayReplace, tr("Replace the module that has this name"));
    addFlag(*m_command, "--yes", m_mayUseNetwork, tr("Use the network without asking"));
    addFlag(*m_command, "--json", m_json, tr("Print the answer as JSON"));
    addFlag(*m_command, "-q,--quiet", m_quiet, tr("No progress bar and no report"));
}

std::string CGetCommand::usageError() const
{
    const bool isAdding = isGiven(*m_command, "NAME");
    if (isAdding && m_list)
        return tr("get takes NAME or --list, but not both");
    if (isAdding && m_json)
        return tr("get takes NAME or --json, but not both");
    if (!isAdding && m_quiet)
        return tr("--quiet requires NAME");
    const bool describesModule = isGiven(*m_command, "--as") || m_isFirst || m_mayReplace;
    if (!isAdding && describesModule)
        return tr("--as, --first and --replace require NAME");
    if (!m_list && !m_language.empty())
        return tr("--language requires --list");
    return !isAdding && !m_list && !m_repositories.empty() ? tr("--repository requires NAME or --list") : "";
}

int CGetCommand::run(const CommandStreams& streams) const
{
    if (m_json)
        forceEnglish();
    CTerminalProgress progress(m_quiet ? nullptr : streams.terminal);
    try {
        return runWith(*m_sword.repositories(), streams, progress);
    } catch (const std::exception& ex) {
        progress.clear();
        return sayFailure(streams.err, ex);
    }
}

int CGetCommand::runWith(const ISwordRepositories& library, const CommandStreams& streams,
                         IProgress& progress) const
{
    if (!m_list && m_text.empty()) {
        if (m_json)
            writeJsonText(repositoriesJson(library.known()), streams.out);
        else
            writeRepositories(library.known(), streams.out);
        return exitDone;
    }
    const std::vector<SwordRepository> repositories = chosen(library);
    if (m_list) {
        askForNetwork(repositories, streams);
        return list(library, repositories, streams, progress);
    }
    const std::string name = m_name.empty() ? defaultModuleName("sword:" + m_text, {}) : m_name;
    checkNewName(name, m_mayReplace);
    askForNetwork(repositories, streams);
    add(library, repositories, streams.out, progress);
    return exitDone;
}

std::vector<SwordRepository> CGetCommand::chosen(const ISwordRepositories& library) const
{
    const std::vector<SwordRepository> known = library.known();
    std::vector<SwordRepository> repositories;
    for (const std::string& typed : m_repositories)
        repositories.push_back(repositoryNamed(typed, known));
    if (m_repositories.empty())
        repositories = known;
    if (repositories.empty())
        throw CNotFound(tr("no repository is configured for SWORD; name one with --repository"));
    return repositories;
}

void CGetCommand::askForNetwork(const std::vector<SwordRepository>& repositories,
                                const CommandStreams& streams) const
{
    std::vector<std::string> addresses;
    for (const SwordRepository& repository : repositories)
        if (repository.isRemote())
            addresses.push_back(repository.address);
    if (addresses.empty() || m_mayUseNetwork)
        return;
    const std::string all = joined(addresses, ", ");
    if (!streams.terminal || !::isatty(STDIN_FILENO))
        throw CNotFound(message("get would use the network (%s); --yes allows it", all));
    *streams.terminal << message("This uses the network: %s. Continue? [y/n] ", all) << std::flush;
    std::string answer;
    if (!std::getline(std::cin, answer) || !isYes(answer))
        throw CNotFound(tr("the network was not used"));
}

int CGetCommand::list(const ISwordRepositories& library, const std::vector<SwordRepository>& repositories,
                      const CommandStreams& streams, IProgress& progress) const
{
    int code = exitDone;
    Json json = Json::array();
    for (const SwordRepository& repository : repositories) {
        try {
            std::vector<OfferedText> texts = library.offered(repository, progress);
            progress.clear();
            if (!m_language.empty())
                std::erase_if(texts, [&](const OfferedText& text) { return text.language != m_language; });
            if (m_json) {
                addTexts(repository.name, texts, json);
                continue;
            }
            if (repositories.size() > 1)
                streams.out << repository.name << ":\n";
            writeTexts(texts, streams.out);
        } catch (const CToolError& ex) {
            progress.clear();
            code = sayFailure(streams.err, ex);
        }
    }
    if (m_json)
        writeJsonText(json, streams.out);
    return code;
}

std::unique_ptr<IFetchedText> CGetCommand::fetch(const ISwordRepositories& library,
                                                 const std::vector<SwordRepository>& repositories,
                                                 IProgress& progress) const
{
    for (std::size_t i = 0;; ++i) {
        try {
            return library.fetch(repositories[i], m_text, progress);
        } catch (const CNotFound&) {
            if (i + 1 == repositories.size())
                throw;
        }
    }
}

void CGetCommand::add(const ISwordRepositories& library, const std::vector<SwordRepository>& repositories,
                      std::ostream& out, IProgress& progress) const
{
    const std::unique_ptr<IFetchedText> text = fetch(library, repositories, progress);
    AddOptions options;
    options.isFirst = m_isFirst;
    options.mayReplace = m_mayReplace;
    options.build.substitute = true;
    options.build.refuseUnfitText = true;
    options.name = m_name.empty() ? defaultModuleName("sword:" + m_text, text->bible().info) : m_name;
    const AddedModule added = addModule(text->bible(), options, progress);
    text->keep();
    progress.clear();
    if (!m_quiet)
        out << added.text();
}

std::unique_ptr<ICommand> makeGetCommand(CLI::App& program, const ISword& sword)
{
    return std::make_unique<CGetCommand>(program, sword);
}

} // namespace Kedrin::ModTool
