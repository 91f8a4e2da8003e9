#include "search_command.h"

#include "build_report.h"
#include "common_books.h"
#include "query_arguments.h"
#include "query_json.h"
#include "search_text.h"

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

namespace {

using Tolvo::CRef;

constexpr const char* wordByCase = "--whole-word finds a word in any case, so it goes without --case";
constexpr const char* emptyText = "search needs a text";

bool isNumberedAlike(const CommonPlace& place, const CRef& local)
{
    return place.chapter == static_cast<int>(local.chapter()) &&
           place.verse == static_cast<int>(local.verse());
}

} // namespace

CSearchCommand::CSearchCommand(CLI::App& program)
    : m_command(program.add_subcommand("search", "Search a module for a text"))
{
    m_command->add_option("MODULE", m_module, "The module's folder")->required();
    m_command->add_option("TEXT", m_text, "What to search for; several words are one text")->required();
    auto* wholeWord = m_command->add_flag("--whole-word", m_wholeWord, "Only as a whole word, in any case");
    m_command->add_flag("--part", m_part, "Inside words too; this is so if nothing is said")
        ->excludes(wholeWord);
    m_command->add_flag("--case", m_case, "Only in just this case");
    m_command->add_flag("--count", m_count, "Only how many verses hold it");
    m_command->add_flag("--json", m_json, "As JSON");
}

bool CSearchCommand::isChosen() const { return m_command->parsed(); }

std::string CSearchCommand::usageError() const
{
    if (m_wholeWord && m_case)
        return wordByCase;
    return joined(m_text).empty() ? emptyText : "";
}

SearchMode CSearchCommand::mode() const
{
    if (m_wholeWord)
        return SearchMode::wholeWord;
    return m_case ? SearchMode::partByCase : SearchMode::part;
}

int CSearchCommand::run(std::ostream& out) const
{
    const CModuleReader module(m_module);
    const std::string text = searchText(joined(m_text));
    const std::vector<CRef> hits = searchModule(module, text, mode());
    if (m_json)
        writeJson(module, hits, out);
    else if (m_count)
        out << hits.size() << '\n';
    else
        writeLines(module, hits, out);
    return hits.empty() ? queryNothing : queryDone;
}

void CSearchCommand::writeLines(const CModuleReader& module, const std::vector<CRef>& hits,
                                std::ostream& out) const
{
    for (const CRef& local : hits) {
        const CommonPlace place = module.commonPlace(local);
        out << module.label(local);
        if (!isNumberedAlike(place, local))
            out << " [" << osisLabel(place) << ']';
        out << "  " << module.text(local) << '\n';
    }
    out << counted(hits.size(), "verse", "verses") << '\n';
}

void CSearchCommand::writeJson(const CModuleReader& module, const std::vector<CRef>& hits,
                               std::ostream& out) const
{
    Json list = Json::array();
    for (const CRef& local : hits) {
        const CommonPlace place = module.commonPlace(local);
        Json hit;
        hit["reference"] = module.label(local);
        hit["local"] = {
            {"book", local.bookID() + 1}, {"chapter", local.chapter() + 1}, {"verse", local.verse() + 1}};
        hit["common"] = {{"book", place.book + 1},
                         {"osis", commonBooks()[place.book].osis},
                         {"chapter", place.chapter + 1},
                         {"verse", place.verse + 1}};
        hit["text"] = module.text(local);
        list.push_back(std::move(hit));
    }
    Json answer;
    answer["module"] = module.folder();
    answer["text"] = joined(m_text);
    answer["count"] = hits.size();
    if (!m_count)
        answer["hits"] = std::move(list);
    writeJsonText(answer, out);
}

} // namespace Kedrin::ModTool
