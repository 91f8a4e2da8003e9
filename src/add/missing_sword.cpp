#include "missing_sword.h"

#include "errors.h"
#include "messages.h"

namespace Kedrin::Add {

void CMissingSword::fail()
{
    throw ModTool::CPartMissing(
        ModTool::tr("The part of the program that reads SWORD texts is not installed. It is in the package "
                    "kedrin-module-sword: install that, then start this program again."));
}

} // namespace Kedrin::Add
