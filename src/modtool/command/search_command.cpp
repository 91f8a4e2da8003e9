#include "commands.h"

#include "ascii.h"
#include "command.h"
#include "command_options.h"
#include "exit_codes.h"
#include "help_formatter.h"
#include "installed_modules.h"
#include "language.h"
#include "messages.h"
#include "misplaced_module.h"
#include "module_search.h"
#include "query_json.h"
#include "reference_parser.h"
#include "search_text.h"
#include "text_columns.h"
#include "verse_output.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable(
    "Finds the same verses as the search in the window, in the same order. Expressions are those of the "
    "ICU library,\n"
    "and match the text without markup.\n"
    "\n"
    "Examples:\n"
    "  kedrin-module search modules/bibles/my light\n"
    "  kedrin-module search modules/bibles/my --whole-word --count God\n"
    "  kedrin-module search modules/bibles/my --all-words --range 'Mat-Jn; Ps 119' light darkness\n"
    "  kedrin-module search modules/bibles/my --regex '\\bin the beginning\\b'\n"
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

/// `kedrin-module search MODULE TEXT`: the verses that contain a text, all of several words, or what an expression
/// matches.
class CSearchCommand final : public CQueryCommand
{
public:
    CSearchCommand(CLI::App& program, RegexMaker makeRegex);

    std::string usageError() const override;

private:
    int answer(std::ostream& out) const override;
    void addMatchingOptions();
    void addOutputOptions();

    SearchMode mode() const;
    std::vector<CRef> find(const CModuleReader& module, const ITextMatcher* regex) const;
    std::unique_ptr<ITextMatcher> highlight() const;
    void write(const CModuleReader& module, const std::vector<CRef>& hits, std::ostream& out) const;
    void writeLines(const CModuleReader& module, const std::vector<CRef>& hits, std::ostream& out) const;
    void writeJson(const CModuleReader& module, const std::vector<CRef>& hits, std::ostream& out) const;
    std::size_t shownCount(const std::vector<CRef>& hits) const { return std::min(hits.size(), m_limit); }

    RegexMaker
        m_makeRegex; ///< null in the program that only reads modules, which is not asked for expressions
    std::string m_module;
    std::vector<std::string> m_text; ///< as typed, word by word
    std::string m_range;
    std::string m_colour = "auto";
    std::size_t m_limit = std::numeric_limits<std::size_t>::max();
    bool m_wholeWord = false;
    bool m_part = false;
    bool m_allWords = false;
    bool m_regex = false;
    bool m_case = false;
    bool m_count = false;
    bool m_json = false;
};

} // namespace

CSearchCommand::CSearchCommand(CLI::App& program, RegexMaker makeRegex)
    : CQueryCommand(addCommand(program, "search", "Search a module for text", helpText)),
      m_makeRegex(makeRegex)
{
    addOption(*m_command, "MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        .require();
    addOption(*m_command, "TEXT", m_text, tr("Text to search for; several words are one text")).typeName("");
    addMatchingOptions();
    addOutputOptions();
}

void CSearchCommand::addMatchingOptions()
{
    const COption wholeWord =
        addFlag(*m_command, "--whole-word", m_wholeWord, tr("Match whole words only, in any case"));
    addFlag(*m_command, "--part", m_part, tr("Match inside words too (default)")).excludes(wholeWord);
    const COption allWords = addFlag(*m_command, "--all-words", m_allWords,
                                     tr("Find verses with all the words, in any order, not one text"));
    addFlag(*m_command, "--regex", m_regex, tr("TEXT is a regular expression"))
        .excludes(wholeWord)
        .excludes(allWords);
    addFlag(*m_command, "--case", m_case, tr("Match case"));
    addOption(*m_command, "--range", m_range, tr("Search only these passages, given as for show"))
        .typeName("REFERENCE");
}

void CSearchCommand::addOutputOptions()
{
    addOption(*m_command, "--limit", m_limit, tr("Show at most this many verses"))
        .range(1, 1000000)
        .text("N");
    addFlag(*m_command, "--count", m_count, tr("Show only the number of verses found"));
    addFlag(*m_command, "--json", m_json, tr("Print the answer as JSON"));
    addOption(*m_command, "--color", m_colour,
              tr("Highlight what is found (auto: on a terminal, unless NO_COLOR is set)"))
        .oneOf({"auto", "always", "never"})
        .text("auto|always|never");
}

std::string CSearchCommand::usageError() const
{
    if (m_wholeWord && m_case)
        return tr("--whole-word ignores case, so it cannot be combined with --case");
    std::vector<std::string> arguments = m_text;
    arguments.insert(arguments.begin(), m_module);
    if (std::string misplaced = misplacedModule("search", arguments); !misplaced.empty())
        return misplaced;
    if (m_text.empty())
        return message("%s is required", argumentName("TEXT"));
    const std::string text = joined(m_text, " ");
    return text.empty() || (m_allWords && isBlank(text)) ? tr("the text to search for is empty") : "";
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
    const std::unique_ptr<ITextMatcher> regex = m_regex ? m_makeRegex(joined(m_text, " "), m_case) : nullptr;
    const CModuleReader module(moduleFolder(m_module));
    std::vector<CRef> hits = find(module, regex.get());
    if (!m_range.empty()) {
        const std::vector<VerseRange> ranges = parseReferences(m_range, module);
        std::erase_if(hits, [&](const CRef& hit) { return !holds(ranges, hit); });
    }
    write(module, hits, out);
    return hits.empty() ? exitFailed : exitDone;
}

std::vector<CRef> CSearchCommand::find(const CModuleReader& module, const ITextMatcher* regex) const
{
    if (regex)
        return searchMatches(module, *regex);
    if (!m_allWords)
        return searchModule(module, searchText(joined(m_text, " ")), mode());
    std::vector<std::string> words;
    for (const std::string& word : wordsOf(joined(m_text, " ")))
        words.push_back(searchText(word));
    return searchAll(module, words, mode());
}

std::unique_ptr<ITextMatcher> CSearchCommand::highlight() const
{
    const std::string text = joined(m_text, " ");
    if (m_regex)
        return m_makeRegex(text, m_case);
    return makeWordMatcher(m_allWords ? wordsOf(text) : std::vector{text}, m_case, m_wholeWord);
}

void CSearchCommand::write(const CModuleReader& module, const std::vector<CRef>& hits,
                           std::ostream& out) const
{
    if (m_json)
        writeJson(module, hits, out);
    else if (m_count)
        out << hits.size() << '\n';
    else
        writeLines(module, hits, out);
}

void CSearchCommand::writeLines(const CModuleReader& module, const std::vector<CRef>& hits,
                                std::ostream& out) const
{
    const bool hasColours = m_colour == "always" || (m_colour == "auto" && wantsColours(out));
    const std::unique_ptr<ITextMatcher> found = hasColours ? highlight() : nullptr;
    const VerseLayout layout{terminalWidth(out, 0), found.get()};
    for (std::size_t i = 0; i < shownCount(hits); ++i) {
        const CRef& local = hits[i];
        const GlobalPosition position = module.globalPosition(local);
        std::string label = module.label(local);
        if (!isNumberedAlike(position, local))
            label += " [" + osisLabel(position) + ']';
        writeVerse(label, module.text(local), layout, out);
    }
    const std::string all = counted(hits.size(), "verse", "verses");
    out << (shownCount(hits) == hits.size() ? all : message("%s; %s shown", all, m_limit)) << '\n';
}

void CSearchCommand::writeJson(const CModuleReader& module, const std::vector<CRef>& hits,
                               std::ostream& out) const
{
    Json answer;
    answer["module"] = module.folder();
    answer["text"] = joined(m_text, " ");
    answer["count"] = hits.size();
    if (!m_count) {
        answer["hits"] = Json::array();
        for (std::size_t i = 0; i < shownCount(hits); ++i)
            answer["hits"].push_back(verseJson(module, hits[i]));
    }
    writeJsonText(answer, out);
}

std::unique_ptr<ICommand> makeSearchCommand(CLI::App& program, RegexMaker makeRegex)
{
    return std::make_unique<CSearchCommand>(program, makeRegex);
}

} // namespace Kedrin::ModTool
