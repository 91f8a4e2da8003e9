#include "query_program.h"

#include "command_line.h"
#include "query_commands.h"

namespace Kedrin::ModTool {

int runQueryProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    CProgramParser parser;
    CQueryCommands query(parser);
    return runCommandLine(parser, query.all(), argc, argv, {out, err, nullptr});
}

} // namespace Kedrin::ModTool
