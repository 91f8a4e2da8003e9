#include "program.h"

#include "build_command.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

#include <iostream>

namespace Kedrin::ModTool {

namespace {

int refuseUsage(std::ostream& err, const std::string& what)
{
    err << "kedrin-module: " << what << "\nkedrin-module: try kedrin-module --help\n";
    return exitUsage;
}

} // namespace

int runProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
               std::ostream* terminal)
{
    CLI::App program("Prepares Bible modules for the reader Kedrin", "kedrin-module");
    CBuildCommand build(program);
    program.require_subcommand(1);
    try {
        program.parse(argc, argv);
    } catch (const CLI::Success& success) {
        program.exit(success, out, err);
        return exitDone;
    } catch (const CLI::ParseError& error) {
        return refuseUsage(err, error.what());
    }
    if (const std::string wrong = build.usageError(); !wrong.empty())
        return refuseUsage(err, wrong);
    CProgress progress(build.isQuiet() ? nullptr : terminal);
    try {
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
