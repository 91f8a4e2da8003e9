#include "command.h"

#include "command_options.h"
#include "errors.h"
#include "exit_codes.h"

namespace Kedrin::ModTool {

int sayFailure(std::ostream& err, const std::exception& failure)
{
    sayError(err, failure.what());
    return dynamic_cast<const CPartMissing*>(&failure) ? exitTrouble : exitFailed;
}

bool CQueryCommand::isChosen() const { return isParsed(*m_command); }

int CQueryCommand::run(const CommandStreams& streams) const
{
    try {
        return answer(streams.out);
    } catch (const CNotFound& ex) {
        sayError(streams.err, ex.what());
        return exitFailed;
    } catch (const std::exception& ex) {
        sayError(streams.err, ex.what());
        return exitTrouble;
    }
}

} // namespace Kedrin::ModTool
