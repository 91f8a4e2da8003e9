#include "command_line.h"

#include "errors.h"
#include "exit_codes.h"
#include "help_formatter.h"
#include "messages.h"
#include "usage_message.h"

#include <CLI/CLI.hpp>

namespace Kedrin::ModTool {

namespace {

int refuseUsage(std::ostream& err, const std::string& what)
{
    sayError(err, what);
    sayError(err, tr("try kedrin-module --help"));
    return exitUsage;
}

bool hasCommand(const CLI::App& parser, const std::string& name)
{
    return !parser.get_subcommands([&](const CLI::App* command) { return command->check_name(name); })
                .empty();
}

} // namespace

CProgramParser::CProgramParser()
    : CLI::App(tr("Prepares Bible modules for the Kedrin reader"), "kedrin-module")
{
    formatter(std::make_shared<CHelpFormatter>());
    set_help_flag("-h,--help", tr("Print this help message and exit"));
    require_subcommand(1);
}

namespace {

int parseAndRun(CLI::App& parser, std::span<const std::unique_ptr<ICommand>> commands, int argc,
                const char* const* argv, const CommandStreams& streams)
{
    try {
        parser.parse(argc, argv);
    } catch (const CLI::Success& success) {
        parser.exit(success, streams.out, streams.err);
        return exitDone;
    } catch (const CLI::ParseError& error) {
        const std::string word = argc > 1 ? argv[1] : "";
        const bool isUnknown = !word.empty() && word[0] != '-' && !hasCommand(parser, word);
        return refuseUsage(streams.err,
                           isUnknown ? message("unknown command \"%s\"", word) : usageMessage(error));
    }
    for (const auto& command : commands)
        if (command->isChosen()) {
            const std::string wrong = command->usageError();
            return wrong.empty() ? command->run(streams) : refuseUsage(streams.err, wrong);
        }
    return exitUsage; // not reached: the parser requires a command
}

} // namespace

int runCommandLine(CLI::App& parser, std::span<const std::unique_ptr<ICommand>> commands, int argc,
                   const char* const* argv, const CommandStreams& streams)
{
    const int result = parseAndRun(parser, commands, argc, argv, streams);
    if (streams.out.flush())
        return result;
    sayError(streams.err, tr("the output cannot be written"));
    return exitTrouble;
}

CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const char* helpText)
{
    CLI::App* command = program.add_subcommand(name, tr(description));
    command->group(tr("Subcommands"));
    command->footer(tr(helpText));
    return command;
}

} // namespace Kedrin::ModTool
