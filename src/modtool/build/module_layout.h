#pragma once

#include "build_report.h"
#include "module_data.h"
#include "source_bible.h"

#include <optional>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Numbers the verses of a module: fills `books` and `verses`. Trailing verses of a chapter, trailing
/// chapters of a book and books without text are left out; gaps become empty verses, and a chapter without
/// text becomes one empty verse, because the engine cannot number a chapter without verses. The report counts
/// all of this.
/// @param globals  [book of the source]: its global number; nothing for a book that is left out
/// @param encoded  [verse of the source]: its bytes in `module.text`
/// @throws CBuildError  as prepareModule(): too many verses, a verse too long, too much text or none
void layOut(const SourceBible& source, const std::vector<std::optional<unsigned int>>& globals,
            const std::vector<ModuleData::Verse>& encoded, ModuleData& module, BuildReport& report);

} // namespace Kedrin::ModTool
