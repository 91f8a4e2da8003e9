#include "commands.h"

#include "ascii.h"
#include "command.h"
#include "command_line.h"
#include "exit_codes.h"
#include "global_books.h"
#include "installed_modules.h"
#include "language.h"
#include "messages.h"
#include "module_search.h"
#include "query_json.h"
#include "search_text.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("Finds the same verses as the search in the window, in the same order.\n"
                 "\n"
                 "Examples:\n"
                 "  kedrin-module search modules/bibles/my light\n"
                 "  kedrin-module search modules/bibles/my --whole-word --count God\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  found\n"
                 "  1  nothing found\n"
                 "  2  invalid arguments\n"
                 "  3  the module cannot be read");

using Tolvo::CRef;

bool isNumberedAlike(const GlobalPosition& position, const CRef& local)
{
    return position.chapter == static_cast<int>(local.chapter()) &&
           position.verse == static_cast<int>(local.verse());
}

/// `kedrin-module search MODULE TEXT [--whole-word | --part] [--case] [--count] [--json]`: the verses that
/// contain a text.
class CSearchCommand final : public CQueryCommand
{
public:
    explicit CSearchCommand(CLI::App& program);

    std::string usageError() const override;

private:
    int answer(std::ostream& out) const override;

    SearchMode mode() const;
    void writeLines(const CModuleReader& module, const std::vector<Tolvo::CRef>& hits,
                    std::ostream& out) const;
    void writeJson(const CModuleReader& module, const std::vector<Tolvo::CRef>& hits,
                   std::ostream& out) const;

    std::string m_module;
    std::vector<std::string> m_text; ///< as typed, word by word
    bool m_wholeWord = false;
    bool m_part = false;
    bool m_case = false;
    bool m_count = false;
    bool m_json = false;
};

} // namespace

CSearchCommand::CSearchCommand(CLI::App& program)
    : CQueryCommand(addCommand(program, "search", "Search a module for text", helpText))
{
    m_command->add_option("MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        ->required();
    m_command->add_option("TEXT", m_text, tr("Text to search for; several words are one text"))
        ->type_name("")
        ->required();
    auto* wholeWord =
        m_command->add_flag("--whole-word", m_wholeWord, tr("Match whole words only, in any case"));
    m_command->add_flag("--part", m_part, tr("Match inside words too (default)"))->excludes(wholeWord);
    m_command->add_flag("--case", m_case, tr("Match case"));
    m_command->add_flag("--count", m_count, tr("Show only the number of verses found"));
    m_command->add_flag("--json", m_json, tr("Print the answer as JSON"));
}

std::string CSearchCommand::usageError() const
{
    if (m_wholeWord && m_case)
        return tr("--whole-word ignores case, so it cannot be combined with --case");
    return joined(m_text, " ").empty() ? tr("the text to search for is empty") : "";
}

SearchMode CSearchCommand::mode() const
{
    if (m_wholeWord)
        return SearchMode::wholeWord;
    return m_case ? SearchMode::partByCase : SearchMode::part;
}

int CSearchCommand::answer(std::ostream& out) const
{
    if (m_json)
        forceEnglish();
    const CModuleReader module(moduleFolder(m_module));
    const std::string text = searchText(joined(m_text, " "));
    const std::vector<CRef> hits = searchModule(module, text, mode());
    if (m_json)
        writeJson(module, hits, out);
    else if (m_count)
        out << hits.size() << '\n';
    else
        writeLines(module, hits, out);
    return hits.empty() ? exitFailed : exitDone;
}

void CSearchCommand::writeLines(const CModuleReader& module, const std::vector<CRef>& hits,
                                std::ostream& out) const
{
    for (const CRef& local : hits) {
        const GlobalPosition position = module.globalPosition(local);
        out << module.label(local);
        if (!isNumberedAlike(position, local))
            out << " [" << osisLabel(position) << ']';
        out << "  " << module.text(local) << '\n';
    }
    out << counted(hits.size(), "verse", "verses") << '\n';
}

void CSearchCommand::writeJson(const CModuleReader& module, const std::vector<CRef>& hits,
                               std::ostream& out) const
{
    Json list = Json::array();
    for (const CRef& local : hits) {
        const GlobalPosition position = module.globalPosition(local);
        Json hit;
        hit["reference"] = module.label(local);
        hit["local"] = {
            {"book", local.bookID() + 1}, {"chapter", local.chapter() + 1}, {"verse", local.verse() + 1}};
        hit["common"] = {{"book", position.book + 1},
                         {"osis", globalBooks()[position.book].osis},
                         {"chapter", position.chapter + 1},
                         {"verse", position.verse + 1}};
        hit["text"] = module.text(local);
        list.push_back(std::move(hit));
    }
    Json answer;
    answer["module"] = module.folder();
    answer["text"] = joined(m_text, " ");
    answer["count"] = hits.size();
    if (!m_count)
        answer["hits"] = std::move(list);
    writeJsonText(answer, out);
}

std::unique_ptr<ICommand> makeSearchCommand(CLI::App& program)
{
    return std::make_unique<CSearchCommand>(program);
}

} // namespace Kedrin::ModTool
