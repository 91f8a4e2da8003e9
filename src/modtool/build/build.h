#pragma once

#include "build_options.h"
#include "build_report.h"
#include "progress.h"
#include "source_bible.h"
#include "source_format.h"
#include "sword_texts.h"

#include <string>

namespace Kedrin::ModTool {

/// Reads a source: "sword:NAME" from the installed SWORD Bibles, anything else as a file or a folder of files.
/// @param sword  used only for "sword:NAME"; CSword in a program that is linked with the SWORD library
/// @throws CBuildError, CPartMissing
SourceBible readSource(const std::string& source, const ReadOptions& options, const ISword& sword,
                       IProgress& progress);

/// Builds the module in its folder, and BibleStructure.txt beside it. If it fails, or is abandoned by what `progress`
/// throws, the folder is unchanged.
/// @param fingerprint  stored in the folder's hidden file ".source" if not empty
/// @throws CBuildError  what prepareModule(), CModuleFolder and checkWritten() throw
BuildReport buildModule(const SourceBible& source, const std::string& folder, const BuildOptions& options,
                        const std::string& fingerprint, IProgress& progress);

/// Writes the modules directory's BibleStructure.txt if it is missing or different.
/// @throws CBuildError  "%s: cannot be written (%s)"
void provideGlobalStructure(const std::string& modulesDirectory);

inline constexpr const char* fingerprintFileName = ".source";

} // namespace Kedrin::ModTool
