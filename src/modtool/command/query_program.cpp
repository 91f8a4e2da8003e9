#include "query_program.h"

#include "command.h"
#include "command_line.h"
#include "exit_codes.h"

#include <algorithm>
#include <array>
#include <new>

namespace Kedrin::ModTool {

bool isQuery(int argc, const char* const* argv)
{
    constexpr std::array<std::string_view, 9> names = {"check", "export", "show", "search", "info",
                                                       "words", "diff",   "list", "remove"};
    return argc > 1 && std::find(names.begin(), names.end(), argv[1]) != names.end() &&
           std::none_of(argv + 1, argv + argc, [](std::string_view word) { return word == "--regex"; });
}

std::vector<std::unique_ptr<ICommand>> makeQueryCommands(CLI::App& program, RegexMaker makeRegex)
{
    std::vector<std::unique_ptr<ICommand>> commands;
    commands.push_back(makeCheckCommand(program));
    commands.push_back(makeExportCommand(program));
    commands.push_back(makeShowCommand(program));
    commands.push_back(makeSearchCommand(program, makeRegex));
    for (const auto make :
         {makeInfoCommand, makeWordsCommand, makeDiffCommand, makeListCommand, makeRemoveCommand})
        commands.push_back(make(program));
    return commands;
}

int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
                    std::ostream* terminal)
try {
    const ProgramParser parser = makeProgramParser();
    const auto commands = makeQueryCommands(*parser, nullptr);
    return runCommandLine(*parser, commands, argc, argv, {out, err, terminal});
} catch (const std::bad_alloc& ex) {
    sayFailure(err, ex);
    return exitTrouble;
}

} // namespace Kedrin::ModTool
