#pragma once

#include "source_bible.h"

#include <functional>

namespace sword {
class SWModule;
}

namespace Kedrin::ModTool {

/// Adds all verses of an installed Bible, and counts what is left out.
/// @param progress  called with the number of verses done and of all
/// @throws CBuildError  where letters of an entry are not accounted for
void readSwordVerses(sword::SWModule& module, const std::function<void(std::size_t, std::size_t)>& progress,
                     SourceBible& bible);

} // namespace Kedrin::ModTool
