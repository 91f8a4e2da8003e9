#pragma once

#include "progress.h"

#include <ostream>
#include <string>

namespace Kedrin::ModTool {

/// Builds a module from every installed SWORD Bible, each into `directory`/<its name in lower case>, with substitutes.
/// A Bible that has not changed since its module was built is passed over after a look at its files' sizes and times;
/// one of which more than a letter in a hundred has no likeness in Windows-1251 is left out, and not read again until
/// it changes. One that fails does not stop the others.
/// @param out  a line a Bible: what was done, and why
/// @returns whether none failed
bool buildAllSword(const std::string& directory, std::ostream& out, std::ostream& err, CProgress& progress);

} // namespace Kedrin::ModTool
