#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// A module that is found by its name.
struct InstalledModule
{
    std::string name;   ///< of its folder, without the sign that puts a module before the others
    std::string folder; ///< path
    bool isOwn;         ///< the user's own; false: the system's
};

/// The folder of the user's own modules: ${XDG_DATA_HOME:-~/.local/share}/kedrin/modules/bibles. It need not exist. A
/// relative XDG_DATA_HOME is ignored.
/// @throws CModuleError  "XDG_DATA_HOME and HOME are not set, so there is no folder for your own modules"
std::string ownModulesFolder();

/// The user's own modules and the system's, in the order in which the reader lists them. Of two with one name the user's
/// own counts. A link from the user's folder to a module of the system is the system's module.
std::vector<InstalledModule> installedModules();

/// The one of that name.
std::optional<InstalledModule> installedModule(std::string_view name);

/// The folder that a command line means: the path itself where it holds a '/' or is a module's folder, else the folder
/// of the installed module of that name.
/// @throws CModuleError  "no module is named \"%s\"" and, where names are alike, " (did you mean %s?)", where there is
///                       neither such a module nor such a folder
std::string moduleFolder(const std::string& argument);

/// Has the reader list one of the user's own modules before all others, and so open it first. One that was first before
/// takes its place in the order again.
/// @param name  of an existing one
/// @returns the module's folder, which is renamed for it
/// @throws CModuleError  "%s: cannot be renamed (%s)"
std::string makeFirst(const std::string& name);

/// A name for a module from any text, such as its title: small letters and digits of any script, with '-' in place of
/// all else; "" where none are left.
std::string moduleNameFrom(std::string_view utf8);

/// Deletes one of the user's own modules. Only a folder that holds a module is deleted, in one step for whoever reads
/// it.
/// @throws CModuleError  as moduleFolder(); "\"%s\" is not one of your own modules: it lies in %s", "%s: cannot be removed (%s)"
void removeOwnModule(const std::string& name);

} // namespace Kedrin::ModTool
