#include "program.h"

#include "build_command.h"
#include "check_command.h"
#include "export_command.h"
#include "query_commands.h"
#include "query_program.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <iostream>

namespace Kedrin::ModTool {

int runProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
               std::ostream* terminal)
{
    CLI::App program(programDescription, programName);
    CBuildCommand build(program);
    CCheckCommand check(program);
    CExportCommand exporter(program);
    CQueryCommands query(program);
    program.require_subcommand(1);
    try {
        program.parse(argc, argv);
    } catch (const CLI::Success& success) {
        program.exit(success, out, err);
        return exitDone;
    } catch (const CLI::ParseError& error) {
        return refuseUsage(err, error.what());
    }
    const std::string wrong = query.isChosen()   ? query.usageError()
                              : check.isChosen() ? check.usageError()
                              : build.isChosen() ? build.usageError()
                                                 : std::string();
    if (!wrong.empty())
        return refuseUsage(err, wrong);
    if (query.isChosen())
        return query.run(out, err);
    if (exporter.isChosen())
        return exporter.run(out, err);
    CProgress progress(build.isQuiet() || check.isQuiet() ? nullptr : terminal);
    try {
        if (check.isChosen())
            return check.run(out, err, progress);
        return build.run(out, err, progress) ? exitDone : exitFailed;
    } catch (const std::exception& ex) {
        progress.clear();
        err << "kedrin-module: " << ex.what() << '\n';
        return exitFailed;
    }
}

int runProgram(int argc, const char* const* argv)
{
    return runProgram(argc, argv, std::cout, std::cerr, ::isatty(STDERR_FILENO) ? &std::cerr : nullptr);
}

} // namespace Kedrin::ModTool
