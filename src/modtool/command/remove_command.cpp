#include "command.h"
#include "command_options.h"
#include "commands.h"
#include "exit_codes.h"
#include "installed_modules.h"
#include "messages.h"

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("Only your own modules can be removed; those installed for all users belong to packages.\n"
                 "\n"
                 "Example:\n"
                 "  kedrin-module remove my\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  done\n"
                 "  2  invalid arguments\n"
                 "  3  there is no such module of yours, or it cannot be removed");

/// `kedrin-module remove NAME`: deletes one of the user's own modules.
class CRemoveCommand final : public CQueryCommand
{
public:
    explicit CRemoveCommand(CLI::App& program)
        : CQueryCommand(addCommand(program, "remove", "Remove one of your own modules", helpText))
    {
        addOption(*m_command, "NAME", m_name, tr("The module's name, as list gives it")).require();
    }

private:
    int answer(std::ostream& out) const override
    {
        removeOwnModule(m_name);
        out << message("%s is removed", printableName(m_name)) << '\n';
        return exitDone;
    }

    std::string m_name;
};

} // namespace

std::unique_ptr<ICommand> makeRemoveCommand(CLI::App& program)
{
    return std::make_unique<CRemoveCommand>(program);
}

} // namespace Kedrin::ModTool
