#include "program.h"

#include "build_command.h"
#include "check_command.h"
#include "command_line.h"
#include "export_command.h"
#include "manual_page.h"
#include "query_commands.h"

#include <unistd.h>

#include <iostream>
#include <vector>

namespace Kedrin::ModTool {

int runProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
               std::ostream* terminal)
{
    CProgramParser parser;
    CBuildCommand build(parser);
    CCheckCommand check(parser);
    CExportCommand exporter(parser);
    CQueryCommands query(parser);
    const auto printManualPage = [&] {
        out << manualPage(parser);
        throw CLI::Success();
    };
    parser.add_flag_callback("--manual-page", printManualPage)->group(""); // for whoever installs the program
    std::vector<const ICommand*> commands = {&build, &check, &exporter};
    const auto queries = query.all();
    commands.insert(commands.end(), queries.begin(), queries.end());
    return runCommandLine(parser, commands, argc, argv, {out, err, terminal});
}

int runProgram(int argc, const char* const* argv)
{
    return runProgram(argc, argv, std::cout, std::cerr, ::isatty(STDERR_FILENO) ? &std::cerr : nullptr);
}

} // namespace Kedrin::ModTool
