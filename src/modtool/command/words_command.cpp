#include "commands.h"

#include "command.h"
#include "command_options.h"
#include "exit_codes.h"
#include "installed_modules.h"
#include "messages.h"
#include "module_words.h"
#include "search_text.h"
#include "stored_markup.h"

#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText = translatable("Examples:\n"
                                              "  kedrin-module words modules/bibles/my\n"
                                              "  kedrin-module words modules/bibles/my --counts light\n"
                                              "\n"
                                              "Exit codes:\n"
                                              "  0  done\n"
                                              "  1  no word starts with PREFIX\n"
                                              "  2  invalid arguments\n"
                                              "  3  the module cannot be read");

/// `kedrin-module words MODULE [PREFIX] [--counts]`: the words of a module in the order of its list, one per
/// line.
class CWordsCommand final : public CQueryCommand
{
public:
    explicit CWordsCommand(CLI::App& program);

private:
    int answer(std::ostream& out) const override;

    std::string m_module;
    std::string m_prefix;
    bool m_counts = false;
};

} // namespace

CWordsCommand::CWordsCommand(CLI::App& program)
    : CQueryCommand(addCommand(program, "words", "List the words of a module", helpText))
{
    addOption(*m_command, "MODULE", m_module, tr("The module's folder, or its name as list shows it"))
        .require();
    addOption(*m_command, "PREFIX", m_prefix, tr("List only words that start with this, in any case"));
    addFlag(*m_command, "--counts", m_counts, tr("Add the number of verses that contain the word"));
}

int CWordsCommand::answer(std::ostream& out) const
{
    const CModuleWords words(moduleFolder(m_module));
    const std::string prefix = searchText(m_prefix);
    bool found = false;
    for (unsigned int i = 0; i < words.list().count(); ++i) {
        const std::string word = words.list()[i];
        if (!Tolvo::caseInsensitiveBegins(word, prefix))
            continue;
        found = true;
        out << plainLine(word);
        if (m_counts)
            out << '\t' << words.versesOf(i).size();
        out << '\n';
    }
    return found ? exitDone : exitFailed;
}

std::unique_ptr<ICommand> makeWordsCommand(CLI::App& program)
{
    return std::make_unique<CWordsCommand>(program);
}

} // namespace Kedrin::ModTool
