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
#include "show_formats.h"
#include "stored_markup.h"
#include "text_columns.h"
#include "verse_alignment.h"
#include "verse_output.h"

#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable(
    "A book can be given by its title in the module (full, short or abbreviated), by a "
    "Bulgarian or English name or\n"
    "abbreviation, or by its OSIS id. Case does not matter. \",\" adds verses, \";\" references.\n"
    "\n"
    "Examples:\n"
    "  kedrin-module show modules/bibles/my Jn 3:16\n"
    "  kedrin-module show modules/bibles/my Gen 1:1-5 --with modules/bibles/web\n"
    "  kedrin-module show modules/bibles/my 'Ps 119; John 3:16,18'\n"
    "  kedrin-module show --format markdown modules/bibles/my Ruth\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  the module has no such verse, or this is not a reference\n"
    "  2  invalid arguments\n"
    "  3  a module cannot be read");

using Tolvo::CRef;

void showRange(const CModuleReader& module, const VerseRange& range, unsigned int width, std::ostream& out)
{
    const unsigned int first =
        module.structure().toNum(CRef(range.book, range.firstChapter, range.firstVerse));
    const unsigned int last = module.structure().toNum(CRef(range.book, range.lastChapter, range.lastVerse));
    const std::string book = module.bookLabel(range.book);
    const unsigned int bookFirst = module.firstVerseNum(range.book);
    const std::vector<CRef> references = module.referencesOfBook(range.book);
    module.forEachVerse(first, last - first + 1, [&](unsigned int verseNum, std::string_view stored) {
        const CRef& reference = references[verseNum - bookFirst];
        writeVerse(book + ' ' + std::to_string(reference.chapter() + 1) + ':' +
                       std::to_string(reference.verse() + 1),
                   plainText(stored), {width, nullptr}, out);
    });
}

std::string cell(const CModuleReader& module, const std::optional<CRef>& verse)
{
    return verse ? module.label(*verse) + "  " + module.text(*verse) : "-";
}

void showSideBySide(const std::vector<const CModuleReader*>& modules, const std::vector<VerseRange>& ranges,
                    unsigned int width, std::ostream& out)
{
    const CTextColumns columns(modules.size(), width);
    std::vector<std::string> cells;
    cells.reserve(modules.size());
    for (const CModuleReader* module : modules)
        cells.push_back(plainLine(module->info().fullTitle()));
    columns.writeRow(out, cells);
    columns.writeRule(out);
    for (const AlignedRow& row : alignRanges(modules, ranges)) {
        for (std::size_t i = 0; i < modules.size(); ++i)
            cells[i] = cell(*modules[i], row.verses[i]);
        columns.writeRow(out, cells);
    }
}

/// The verses of the ranges, with those of the other modules in the same places of the global numbering.
ShownVerses shownVerses(const std::vector<const CModuleReader*>& modules,
                        const std::vector<VerseRange>& ranges)
{
    ShownVerses shown{modules, {}};
    if (modules.size() > 1) {
        for (AlignedRow& row : alignRanges(modules, ranges))
            shown.rows.push_back(std::move(row.verses));
        return shown;
    }
    for (const VerseRange& range : ranges)
        for (const CRef& reference : modules.front()->referencesOfBook(range.book))
            if (range.holds(reference))
                shown.rows.push_back({reference});
    return shown;
}

/// `kedrin-module show MODULE REFERENCE [--with MODULE]... [--format FORMAT]`: verses of one module, one per line, or
/// of several side by side.
class CShowCommand final : public CQueryCommand
{
public:
    static constexpr unsigned int defaultWidth = 80;

    explicit CShowCommand(CLI::App& program);

    std::string usageError() const override;

private:
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::vector<std::string> m_reference; ///< as typed, word by word
    std::vector<std::string> m_others;
    std::string m_format = "text";
    unsigned int m_width = 0; ///< 0: the terminal's
};

} // namespace

CShowCommand::CShowCommand(CLI::App& program)
    : CQueryCommand(
          addCommand(program, "show", "Show verses of a module, or of several side by side", helpText))
{
    addOption(*m_command, "MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        .require();
    addOption(*m_command, "REFERENCE", m_reference,
              tr("Book, chapter or verses: John 3:16, Gen 1:1-5, Ps 119"))
        .typeName("");
    addOption(*m_command, "--with", m_others,
              tr("Another module to show beside it; may be given several times"))
        .typeName("MODULE")
        .takeOneEach();
    addOption(*m_command, "--format", m_format, tr("How to write the verses"))
        .oneOf({"text", "markdown", "html", "json"})
        .text("text|markdown|html|json");
    addOption(*m_command, "--width", m_width, tr("Width of a line in columns (default: the terminal's)"))
        .range(20, 1000)
        .text("N");
}

std::string CShowCommand::usageError() const
{
    std::vector<std::string> arguments = m_reference;
    arguments.insert(arguments.begin(), m_module);
    const std::string misplaced = misplacedModule("show", arguments);
    return misplaced.empty() && m_reference.empty() ? message("%s is required", argumentName("REFERENCE"))
                                                    : misplaced;
}

int CShowCommand::answer(std::ostream& out) const
{
    if (m_format == "json")
        forceEnglish();
    const CModuleReader module(moduleFolder(m_module));
    const std::vector<VerseRange> ranges = parseReferences(joined(m_reference, " "), module);
    std::vector<std::unique_ptr<CModuleReader>> others;
    std::vector<const CModuleReader*> modules = {&module};
    for (const std::string& folder : m_others)
        modules.push_back(others.emplace_back(std::make_unique<CModuleReader>(moduleFolder(folder))).get());
    if (m_format == "markdown")
        writeMarkdown(shownVerses(modules, ranges), out);
    else if (m_format == "html")
        writeHtml(shownVerses(modules, ranges), out);
    else if (m_format == "json")
        writeJson(shownVerses(modules, ranges), out);
    else if (modules.size() > 1)
        showSideBySide(modules, ranges, m_width != 0 ? m_width : terminalWidth(out, defaultWidth), out);
    else
        for (const VerseRange& range : ranges)
            showRange(module, range, m_width != 0 ? m_width : terminalWidth(out, 0), out);
    return exitDone;
}

std::unique_ptr<ICommand> makeShowCommand(CLI::App& program)
{
    return std::make_unique<CShowCommand>(program);
}

} // namespace Kedrin::ModTool
