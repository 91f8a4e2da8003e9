#include "query_program.h"

#include "program.h"
#include "query_commands.h"

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    CLI::App program(programDescription, programName);
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
    if (const std::string wrong = query.usageError(); !wrong.empty())
        return refuseUsage(err, wrong);
    return query.run(out, err);
}

int refuseUsage(std::ostream& err, const std::string& what)
{
    err << "kedrin-module: " << what << "\nkedrin-module: try kedrin-module --help\n";
    return exitUsage;
}

} // namespace Kedrin::ModTool
