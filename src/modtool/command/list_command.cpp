#include "command.h"
#include "command_options.h"
#include "commands.h"
#include "exit_codes.h"
#include "folder_names.h"
#include "installed_modules.h"
#include "language.h"
#include "messages.h"
#include "module_format.h"
#include "module_reader.h"
#include "query_json.h"
#include "stored_markup.h"
#include "text_columns.h"
#include "tolvo_bible/bible_info.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("Every other command takes a module's name in place of its folder.\n"
                 "Your own modules are in $XDG_DATA_HOME/kedrin/modules/bibles (usually "
                 "~/.local/share/kedrin/modules/bibles).\n"
                 "\n"
                 "Example:\n"
                 "  kedrin-module list\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  done\n"
                 "  2  invalid arguments\n"
                 "  3  the output cannot be written");

/// UTF-8
std::string titleOf(const InstalledModule& module)
{
    const Tolvo::CBibleInfo info((module.folder + '/' + infoFileName).c_str(),
                                 folderTitle(module.folder).c_str());
    return plainLine(info.fullTitle());
}

void writeLines(const std::vector<InstalledModule>& modules, std::ostream& out)
{
    std::size_t width = 0;
    for (const InstalledModule& module : modules)
        width = std::max(width, charactersIn(printableName(module.name)));
    for (const InstalledModule& module : modules)
        out << padded(printableName(module.name), width) << "  " << titleOf(module)
            << (module.isOwn ? "" : tr(" (installed for all users)")) << '\n';
    if (modules.empty())
        out << tr("no module is installed") << '\n';
}

void writeJson(const std::vector<InstalledModule>& modules, std::ostream& out)
{
    Json list = Json::array();
    for (const InstalledModule& module : modules)
        list.push_back({{"name", module.name},
                        {"title", titleOf(module)},
                        {"folder", module.folder},
                        {"own", module.isOwn}});
    writeJsonText(list, out);
}

/// `kedrin-module list [--json]`: the modules that are found by name, in the reader's order.
class CListCommand final : public CQueryCommand
{
public:
    explicit CListCommand(CLI::App& program)
        : CQueryCommand(addCommand(program, "list", "List the installed modules", helpText))
    {
        addFlag(*m_command, "--json", m_json, tr("Print the answer as JSON"));
    }

private:
    int answer(std::ostream& out) const override
    {
        if (m_json)
            forceEnglish();
        const std::vector<InstalledModule> modules = installedModules();
        if (m_json)
            writeJson(modules, out);
        else
            writeLines(modules, out);
        return exitDone;
    }

    bool m_json = false;
};

} // namespace

std::unique_ptr<ICommand> makeListCommand(CLI::App& program)
{
    return std::make_unique<CListCommand>(program);
}

} // namespace Kedrin::ModTool
