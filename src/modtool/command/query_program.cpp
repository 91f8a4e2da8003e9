#include "query_program.h"

#include "command_line.h"

#include <algorithm>
#include <array>

namespace Kedrin::ModTool {

bool isQueryCommand(std::string_view word)
{
    constexpr std::array<std::string_view, 7> names = {"show", "search", "info",  "words",
                                                       "diff", "list",   "remove"};
    return std::find(names.begin(), names.end(), word) != names.end();
}

std::vector<std::unique_ptr<ICommand>> makeQueryCommands(CLI::App& program)
{
    std::vector<std::unique_ptr<ICommand>> commands;
    for (const auto make : {makeShowCommand, makeSearchCommand, makeInfoCommand, makeWordsCommand,
                            makeDiffCommand, makeListCommand, makeRemoveCommand})
        commands.push_back(make(program));
    return commands;
}

int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    CProgramParser parser;
    const auto commands = makeQueryCommands(parser);
    return runCommandLine(parser, commands, argc, argv, {out, err, nullptr});
}

} // namespace Kedrin::ModTool
