#pragma once

#include "progress.h"
#include "sword_texts.h"

#include <ostream>
#include <string>

namespace Kedrin::ModTool {

/// Builds a module from every Bible of `texts`, each in `directory`/<its name in lower case>, replacing
/// characters as --substitute does. A Bible whose file sizes and times have not changed since its module was
/// built is skipped. One with more than one letter in a hundred without an equivalent in Windows-1251 is
/// skipped, and not read again until it changes. A failure does not stop the others.
/// @param out  one line per Bible: what was done, and why
/// @returns whether none failed
bool buildAllSword(const ISwordTexts& texts, const std::string& directory, std::ostream& out,
                   std::ostream& err, IProgress& progress);

} // namespace Kedrin::ModTool
