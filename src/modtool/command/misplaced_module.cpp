#include "misplaced_module.h"

#include "ascii.h"
#include "book_finder.h"
#include "errors.h"
#include "installed_modules.h"
#include "messages.h"
#include "spelling.h"

#include <algorithm>
#include <optional>

namespace Kedrin::ModTool {

namespace {

/// Whether an argument is the name of a module, or a path.
bool isNamed(const std::string& argument)
{
    try {
        moduleFolder(argument);
        return true;
    } catch (const CModuleError&) {
        return false;
    }
}

/// "Йоан 3:16" begins with a book.
bool isReference(const std::vector<std::string>& arguments)
{
    const std::string reference = joined(arguments, " ");
    return !bookFinder().findShort(trimmedEnd(reference, "0123456789.:,;- ")).empty();
}

/// As it is typed in a shell.
std::string commandLine(const std::string& command, const std::vector<std::string>& arguments)
{
    std::string line = "kedrin-module " + command;
    for (const std::string& argument : arguments) {
        const bool isQuoted = argument.find_first_of(" ;'\"\\$&|<>()*?") != std::string::npos;
        std::string quoted;
        for (const char character : argument)
            quoted += character == '\'' ? "'\\''" : std::string(1, character);
        line += isQuoted ? " '" + quoted + '\'' : ' ' + argument;
    }
    return line;
}

} // namespace

std::string misplacedModule(const std::string& command, std::vector<std::string> arguments)
{
    if (arguments.empty() || isNamed(arguments.front()))
        return "";
    const auto module = std::find_if(arguments.begin() + 1, arguments.end(), isNamed);
    if (module != arguments.end()) {
        std::rotate(arguments.begin(), module, module + 1);
    } else {
        const std::vector<InstalledModule> modules = installedModules();
        const bool isMisspelt = std::any_of(modules.begin(), modules.end(), [&](const auto& known) {
            return isLikeSpelling(arguments.front(), known.name);
        });
        if (modules.empty() || isMisspelt || (arguments.size() > 1 && !isReference(arguments)))
            return "";
        arguments.insert(arguments.begin(), modules.front().name);
    }
    return message("the module comes first: %s", commandLine(command, arguments));
}

} // namespace Kedrin::ModTool
