#pragma once

#include "build_options.h"
#include "build_report.h"
#include "progress.h"
#include "source_bible.h"

#include <string>

namespace Kedrin::ModTool {

/// How a module is to be added to the user's own.
struct AddOptions
{
    std::string name;        ///< by which it is found; defaultModuleName() where the user chooses none
    bool isFirst = false;    ///< listed before all others, so that the reader opens it first
    bool mayReplace = false; ///< in place of an installed module of this name, instead of being refused
    BuildOptions build;
};

/// What addModule() did.
struct AddedModule
{
    std::string name;
    bool hasReplaced; ///< one of the user's own
    bool isFirst;
    BuildReport report;

    /// The report of the build and a line on what the reader will show.
    std::string text() const;
};

/// Whether a module can have this name: not empty, not longer than 200 bytes, UTF-8, does not begin with '.' or '!',
/// without '/' and control characters, and not that of a file that stands beside the modules.
bool isModuleName(const std::string& name);

/// The name that a module from this source has where the user chooses none: that of the file or folder without its
/// extension, or of the SWORD Bible, with small letters and '-' in place of all but letters and digits; the source's
/// title where nothing is left of it ("-"), "module" where it has none.
/// @param source  as readSource() takes it
std::string defaultModuleName(const std::string& source, const SourceInfo& info);

/// @throws CBuildError  where addModule() would refuse the name, so that no work is done in vain
void checkNewName(const std::string& name, bool mayReplace);

/// Builds a module in the user's own folder, which is created if missing. Until it is complete, nothing changes for
/// whoever reads the modules there. A link that the launcher has made to the system's module of this name makes way for
/// it.
/// @throws CBuildError
///     "\"%s\" cannot be the name of a module": see isModuleName()
///     "a module named \"%s\" is already installed; choose another name, or replace it": only if !mayReplace
///     "%s: cannot be created (%s); set XDG_DATA_HOME to a folder that you can write to"
///     what buildModule() throws
/// @throws CModuleError  as ownModulesFolder()
AddedModule addModule(const SourceBible& bible, const AddOptions& options, IProgress& progress);

} // namespace Kedrin::ModTool
