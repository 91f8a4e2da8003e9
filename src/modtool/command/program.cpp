#include "program.h"

#include "command_line.h"
#include "query_program.h"
#include "regex_matcher.h"

#include <unistd.h>

#include <iostream>
#include <vector>

namespace Kedrin::ModTool {

int runProgram(int argc, const char* const* argv, const ISword& sword, std::ostream& out, std::ostream& err,
               std::ostream* terminal)
{
    const ProgramParser parser = makeProgramParser();
    std::vector<std::unique_ptr<ICommand>> commands;
    for (const auto make : {makeBuildCommand, makeAddCommand, makeGetCommand})
        commands.push_back(make(*parser, sword));
    for (const auto make : {makeCheckCommand, makeExportCommand})
        commands.push_back(make(*parser));
    for (auto& command : makeQueryCommands(*parser, makeRegexMatcher))
        commands.push_back(std::move(command));
    return runCommandLine(*parser, commands, argc, argv, {out, err, terminal});
}

int runProgram(int argc, const char* const* argv, const ISword& sword)
{
    return runProgram(argc, argv, sword, std::cout, std::cerr,
                      ::isatty(STDERR_FILENO) ? &std::cerr : nullptr);
}

} // namespace Kedrin::ModTool
