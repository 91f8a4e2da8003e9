#include "command_line.h"

#include "errors.h"
#include "exit_codes.h"
#include "help_formatter.h"
#include "messages.h"
#include "usage_message.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <vector>

namespace Kedrin::ModTool {

namespace {

int refuseUsage(std::ostream& err, const std::string& what)
{
    sayError(err, what);
    sayError(err, tr("try kedrin-module --help"));
    return exitUsage;
}

/// The names of all commands.
std::vector<std::string> commandNames(const CLI::App& parser)
{
    std::vector<std::string> names;
    for (const CLI::App* command : parser.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    return names;
}

/// "" or what is wrong with the name of the command.
std::string unknownCommand(const CLI::App& parser, const std::string& word)
{
    const std::vector<std::string> names = commandNames(parser);
    if (word.empty() || word[0] == '-' || std::find(names.begin(), names.end(), word) != names.end())
        return "";
    const std::string like = namesLike(word, names);
    return like.empty() ? message("unknown command \"%s\"", word)
                        : message("unknown command \"%s\" (did you mean %s?)", word, like);
}

/// `help` is `--help`, `help COMMAND` is `COMMAND --help`.
std::vector<std::string> withoutHelpCommand(int argc, const char* const* argv)
{
    std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    if (arguments.empty() || arguments.front() != "help")
        return arguments;
    arguments.erase(arguments.begin());
    arguments.emplace_back("--help");
    return arguments;
}

} // namespace

void ParserDeleter::operator()(CLI::App* parser) const { delete parser; }

ProgramParser makeProgramParser()
{
    ProgramParser parser(new CLI::App(tr("Prepares Bible modules for the Kedrin reader"), "kedrin-module"));
    parser->formatter(std::make_shared<CHelpFormatter>());
    parser->set_help_flag("-h,--help", tr("Print this help message and exit"));
    parser->set_version_flag("--version", "kedrin-module " KEDRIN_VERSION, tr("Print the version and exit"));
    parser->footer(tr("kedrin-module help COMMAND explains a command."));
    parser->require_subcommand(1);
    return parser;
}

namespace {

int parseAndRun(CLI::App& parser, std::span<const std::unique_ptr<ICommand>> commands, int argc,
                const char* const* argv, const CommandStreams& streams)
{
    std::vector<std::string> arguments = withoutHelpCommand(argc, argv);
    const std::string word = arguments.empty() ? "" : arguments.front();
    if (const std::string unknown = unknownCommand(parser, word); !unknown.empty())
        return refuseUsage(streams.err, unknown);
    std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the end
    try {
        parser.parse(arguments);
    } catch (const CLI::Success& success) {
        parser.exit(success, streams.out, streams.err);
        return exitDone;
    } catch (const CLI::ParseError& error) {
        return refuseUsage(streams.err, usageMessage(error, parser));
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

} // namespace Kedrin::ModTool
