#include "commands.h"

#include "ascii.h"
#include "command.h"
#include "command_line.h"
#include "exit_codes.h"
#include "installed_modules.h"
#include "messages.h"
#include "stored_markup.h"
#include "text_columns.h"
#include "verse_alignment.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("A book can be given by its title in the module (full, short or abbreviated), by a "
                 "Bulgarian or English name or\n"
                 "abbreviation, or by its OSIS id. Case does not matter.\n"
                 "\n"
                 "Examples:\n"
                 "  kedrin-module show modules/bibles/my Jn 3:16\n"
                 "  kedrin-module show modules/bibles/my Gen 1:1-5 --with modules/bibles/web\n"
                 "  kedrin-module show modules/bibles/my Ps 119\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  done\n"
                 "  1  the module has no such verse, or this is not a reference\n"
                 "  2  invalid arguments\n"
                 "  3  a module cannot be read");

using Tolvo::CRef;

void showOne(const CModuleReader& module, const VerseRange& range, std::ostream& out)
{
    const unsigned int first =
        module.structure().toNum(CRef(range.book, range.firstChapter, range.firstVerse));
    const unsigned int last = module.structure().toNum(CRef(range.book, range.lastChapter, range.lastVerse));
    const std::string book = module.bookLabel(range.book);
    const unsigned int bookFirst = module.firstVerseNum(range.book);
    const std::vector<CRef> references = module.referencesOfBook(range.book);
    module.forEachVerse(first, last - first + 1, [&](unsigned int verseNum, std::string_view stored) {
        const CRef& reference = references[verseNum - bookFirst];
        out << book << ' ' << reference.chapter() + 1 << ':' << reference.verse() + 1 << "  "
            << plainText(stored) << '\n';
    });
}

std::string cell(const CModuleReader& module, const std::optional<CRef>& verse)
{
    return verse ? module.label(*verse) + "  " + module.text(*verse) : "-";
}

void showSideBySide(const std::vector<const CModuleReader*>& modules, const VerseRange& range,
                    unsigned int width, std::ostream& out)
{
    const CTextColumns columns(modules.size(), width);
    std::vector<std::string> cells;
    cells.reserve(modules.size());
    for (const CModuleReader* module : modules)
        cells.push_back(plainLine(module->info().fullTitle()));
    columns.writeRow(out, cells);
    columns.writeRule(out);
    for (const AlignedRow& row : alignRange(modules, range)) {
        for (std::size_t i = 0; i < modules.size(); ++i)
            cells[i] = cell(*modules[i], row.verses[i]);
        columns.writeRow(out, cells);
    }
}

/// `kedrin-module show MODULE REFERENCE [--with MODULE]...`: verses of one module, one per line, or of
/// several side by side.
class CShowCommand final : public CQueryCommand
{
public:
    static constexpr unsigned int defaultWidth = 80;

    explicit CShowCommand(CLI::App& program);

private:
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::vector<std::string> m_reference; ///< as typed, word by word
    std::vector<std::string> m_others;
    unsigned int m_width = 0; ///< 0: the terminal's
};

} // namespace

CShowCommand::CShowCommand(CLI::App& program)
    : CQueryCommand(
          addCommand(program, "show", "Show verses of a module, or of several side by side", helpText))
{
    m_command->add_option("MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        ->required();
    m_command
        ->add_option("REFERENCE", m_reference, tr("Book, chapter or verses: John 3:16, Gen 1:1-5, Ps 119"))
        ->required();
    m_command
        ->add_option("--with", m_others, tr("Another module to show beside it; may be given several times"))
        ->type_name("MODULE")
        ->allow_extra_args(false);
    m_command->add_option("--width", m_width, tr("Total width in columns, for several modules"))
        ->check(CLI::Range(20, 1000))
        ->option_text("N");
}

int CShowCommand::answer(std::ostream& out) const
{
    const CModuleReader module(moduleFolder(m_module));
    const VerseRange range = parseReference(joined(m_reference, " "), module);
    if (m_others.empty()) {
        showOne(module, range, out);
        return exitDone;
    }
    std::vector<std::unique_ptr<CModuleReader>> others;
    std::vector<const CModuleReader*> modules = {&module};
    for (const std::string& folder : m_others)
        modules.push_back(others.emplace_back(std::make_unique<CModuleReader>(moduleFolder(folder))).get());
    showSideBySide(modules, range, m_width != 0 ? m_width : terminalWidth(out, defaultWidth), out);
    return exitDone;
}

std::unique_ptr<ICommand> makeShowCommand(CLI::App& program)
{
    return std::make_unique<CShowCommand>(program);
}

} // namespace Kedrin::ModTool
