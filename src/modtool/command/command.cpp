#include "command.h"

#include "command_options.h"
#include "errors.h"
#include "exit_codes.h"
#include "messages.h"

#include <new>

namespace Kedrin::ModTool {

int sayFailure(std::ostream& err, const std::exception& failure)
{
    const bool lacksMemory = dynamic_cast<const std::bad_alloc*>(&failure) != nullptr;
    sayError(err, lacksMemory ? tr("out of memory") : failure.what());
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
        sayFailure(streams.err, ex);
        return exitTrouble;
    }
}

} // namespace Kedrin::ModTool
