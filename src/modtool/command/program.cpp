#include "program.h"

#include "command.h"
#include "command_line.h"
#include "exit_codes.h"
#include "query_program.h"
#include "regex_matcher.h"

#include <unistd.h>

#include <iostream>
#include <new>
#include <vector>

namespace Kedrin::ModTool {

int runProgram(int argc, const char* const* argv, const ISword& sword, std::ostream& out, std::ostream& err,
               std::ostream* terminal)
try {
    const ProgramParser parser = makeProgramParser();
    std::vector<std::unique_ptr<ICommand>> commands;
    for (const auto make : {makeBuildCommand, makeAddCommand, makeGetCommand})
        commands.push_back(make(*parser, sword));
    for (auto& command : makeQueryCommands(*parser, makeRegexMatcher))
        commands.push_back(std::move(command));
    return runCommandLine(*parser, commands, argc, argv, {out, err, terminal});
} catch (const std::bad_alloc& ex) {
    sayFailure(err, ex);
    return exitTrouble;
}

int runProgram(int argc, const char* const* argv, const ISword& sword)
{
    return runProgram(argc, argv, sword, std::cout, std::cerr,
                      ::isatty(STDERR_FILENO) ? &std::cerr : nullptr);
}

} // namespace Kedrin::ModTool
