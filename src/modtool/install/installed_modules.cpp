#include "installed_modules.h"

#include "errors.h"
#include "folder_names.h"
#include "messages.h"
#include "module_format.h"
#include "spelling.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

/// Sorts before every letter and digit, and is part of no name.
constexpr char firstSign = '!';

/// Relative to the folder of the program's file: in the build folder and beside kedrin-module-all, and as installed.
constexpr const char* systemModules[] = {"modules/bibles", KEDRIN_PRIVATE_DIR "/modules/bibles"};

std::string absoluteValueOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value && *value == '/' ? value : "";
}

bool isModuleFolder(const fs::path& folder)
{
    std::error_code ignored;
    return fs::exists(folder / titlesFileName, ignored);
}

/// Where a path leads, its links followed.
fs::path targetOf(const fs::path& path)
{
    std::error_code ignored;
    return fs::weakly_canonical(path, ignored);
}

std::vector<fs::path> systemFolders()
{
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    std::vector<fs::path> folders;
    for (const char* relative : systemModules)
        folders.push_back((program / relative).lexically_normal());
    return folders;
}

std::string nameOf(const fs::path& folder)
{
    std::string name = folder.filename().string();
    return name.starts_with(firstSign) ? name.substr(1) : name;
}

/// Adds the modules of a folder, but for those whose name is known.
void addModules(const fs::path& parent, bool isOwn, std::vector<InstalledModule>& modules)
{
    std::error_code error;
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path& folder = entry->path();
        if (folder.filename().string().starts_with('.') || !isModuleFolder(folder))
            continue;
        const std::string name = nameOf(folder);
        if (std::none_of(modules.begin(), modules.end(),
                         [&](const InstalledModule& known) { return known.name == name; }))
            modules.push_back(
                {name, folder.string(), isOwn && targetOf(folder).parent_path() == targetOf(parent)});
    }
}

/// Renames a module's folder. A link of the new name, to a module of the system, makes way for it.
void renameFolder(const fs::path& folder, const fs::path& newName)
{
    std::error_code error, ignored;
    if (fs::is_symlink(fs::symlink_status(newName, ignored)))
        fs::remove(newName, error);
    if (!error)
        fs::rename(folder, newName, error);
    if (error)
        throw CModuleError(message("%s: cannot be renamed (%s)", folder.string(), error.message()));
}

[[noreturn]] void failUnknown(const std::string& typed, const std::vector<InstalledModule>& modules)
{
    std::string like;
    for (const InstalledModule& module : modules)
        if (isLikeSpelling(typed, module.name))
            like += (like.empty() ? "" : ", ") + module.name;
    throw CModuleError(like.empty() ? message("no module is named \"%s\"", typed)
                                    : message("no module is named \"%s\" (did you mean %s?)", typed, like));
}

} // namespace

std::string ownModulesFolder()
{
    if (const std::string data = absoluteValueOf("XDG_DATA_HOME"); !data.empty())
        return data + "/kedrin/modules/bibles";
    if (const std::string home = absoluteValueOf("HOME"); !home.empty())
        return home + "/.local/share/kedrin/modules/bibles";
    throw CModuleError(tr("XDG_DATA_HOME and HOME are not set, so there is no folder for your own modules"));
}

std::vector<InstalledModule> installedModules()
{
    std::vector<InstalledModule> modules;
    if (!absoluteValueOf("XDG_DATA_HOME").empty() || !absoluteValueOf("HOME").empty())
        addModules(ownModulesFolder(), true, modules);
    for (const fs::path& folder : systemFolders())
        addModules(folder, false, modules);
    const auto sortingKey = [](const InstalledModule& module) {
        return folderSortingKey(fs::path(module.folder).filename().string());
    };
    std::sort(modules.begin(), modules.end(),
              [&](const auto& a, const auto& b) { return sortingKey(a) < sortingKey(b); });
    return modules;
}

std::optional<InstalledModule> installedModule(std::string_view name)
{
    std::vector<InstalledModule> modules = installedModules();
    const auto found = std::ranges::find(modules, name, &InstalledModule::name);
    return found == modules.end() ? std::nullopt : std::optional(std::move(*found));
}

std::string moduleFolder(const std::string& argument)
{
    std::error_code ignored;
    if (argument.find('/') != std::string::npos || isModuleFolder(argument))
        return argument;
    const std::vector<InstalledModule> modules = installedModules();
    if (const auto found = std::ranges::find(modules, argument, &InstalledModule::name);
        found != modules.end())
        return found->folder;
    if (fs::exists(argument, ignored)) // what is wrong with it is for the caller to say
        return argument;
    failUnknown(argument, modules);
}

std::string makeFirst(const std::string& name)
{
    const fs::path parent = ownModulesFolder();
    for (const InstalledModule& module : installedModules())
        if (module.isOwn && module.name != name && fs::path(module.folder).filename() != module.name)
            renameFolder(module.folder, parent / module.name);
    const fs::path first = parent / (firstSign + name);
    std::error_code ignored;
    if (!fs::exists(first, ignored))
        renameFolder(parent / name, first);
    return first.string();
}

std::string moduleNameFrom(std::string_view utf8)
{
    const icu::UnicodeString text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())))
            .toLower(icu::Locale::getRoot());
    icu::UnicodeString name;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 codePoint = text.char32At(i);
        if (u_isalnum(codePoint))
            name.append(codePoint);
        else if (!name.isEmpty() && !name.endsWith(u"-", 1))
            name.append(u'-');
    }
    if (name.endsWith(u"-", 1))
        name.truncate(name.length() - 1);
    std::string result;
    name.toUTF8String(result);
    return result;
}

void removeOwnModule(const std::string& name)
{
    const std::vector<InstalledModule> modules = installedModules();
    const auto found = std::ranges::find(modules, name, &InstalledModule::name);
    if (found == modules.end())
        failUnknown(name, modules);
    if (!found->isOwn)
        throw CModuleError(message("\"%s\" is not one of your own modules: it lies in %s", name,
                                   targetOf(found->folder).parent_path().string()));
    const fs::path folder = found->folder;
    const fs::path hidden = folder.parent_path() / ('.' + folder.filename().string() + ".removed");
    std::error_code error;
    fs::remove_all(hidden, error); // of an interrupted removal
    if (!error)
        fs::rename(folder, hidden, error);
    if (!error)
        fs::remove_all(hidden, error);
    if (error)
        throw CModuleError(message("%s: cannot be removed (%s)", folder.string(), error.message()));
}

} // namespace Kedrin::ModTool
