#include "add_module.h"

#include "build.h"
#include "errors.h"
#include "installed_modules.h"
#include "messages.h"
#include "module_format.h"
#include "text_columns.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

/// Leaves room for the hidden names of a module being built, in the 255 bytes of a file name.
constexpr std::size_t maxNameBytes = 200;

bool isUtf8(const std::string& text)
{
    std::string again;
    icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
        .toUTF8String(again);
    return again == text;
}

bool isControl(char character) { return static_cast<unsigned char>(character) < 0x20 || character == 0x7F; }

void checkName(const std::string& name)
{
    if (!isModuleName(name))
        throw CBuildError(message("%s cannot be the name of a module", inQuotes(name)));
}

void makeFolder(const std::string& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw CBuildError(message("%s: cannot be created (%s); set XDG_DATA_HOME to a folder that you can "
                                  "write to",
                                  folder, error.message()));
}

/// Builds the module where a link stands in its place, and removes the link once it is complete.
BuildReport buildInPlaceOfLink(const SourceBible& bible, const std::string& folder, const std::string& hidden,
                               const BuildOptions& options, IProgress& progress)
{
    BuildReport report = buildModule(bible, hidden, options, "", progress);
    std::error_code error;
    fs::remove(folder, error);
    if (!error)
        fs::rename(hidden, folder, error);
    if (error)
        throw CBuildError(message("%s: cannot be written (%s)", folder, error.message()));
    report.folder = folder;
    return report;
}

} // namespace

bool isModuleName(const std::string& name)
{
    return !name.empty() && name.size() <= maxNameBytes && !name.starts_with('.') && !name.starts_with('!') &&
           name.find('/') == std::string::npos && std::none_of(name.begin(), name.end(), isControl) &&
           name != globalStructureFileName && isUtf8(name);
}

std::string defaultModuleName(const std::string& source, const SourceInfo& info)
{
    constexpr std::string_view swordPrefix = "sword:";
    std::string name;
    if (source.starts_with(swordPrefix)) {
        name = moduleNameFrom(source.substr(swordPrefix.size()));
    } else {
        const fs::path path = fs::path(source + '/').parent_path();
        std::error_code ignored;
        name = moduleNameFrom((fs::is_directory(path, ignored) ? path.filename() : path.stem()).string());
    }
    if (name.empty())
        name = moduleNameFrom(info.shortTitle.empty() ? info.fullTitle : info.shortTitle);
    return name.empty() ? "module" : name;
}

void checkNewName(const std::string& name, bool mayReplace)
{
    checkName(name);
    if (!mayReplace && installedModule(name))
        throw CBuildError(
            message("a module named \"%s\" is already installed; choose another name, or replace it", name));
}

std::string AddedModule::text() const
{
    constexpr const char* menu = "Преводи"; // the reader's, which is Bulgarian in every language
    const std::string next =
        isFirst ? message("%s; the next time Kedrin is started, it opens this translation", name)
                : message("%s; the next time Kedrin is started, its menu \"%s\" lists this translation", name,
                          menu);
    const char* label = hasReplaced ? translatable("replaced") : translatable("added");
    return report.text() + padded(tr(label), labelColumns) + next + '\n';
}

AddedModule addModule(const SourceBible& bible, const AddOptions& options, IProgress& progress)
{
    checkNewName(options.name, options.mayReplace);
    const std::optional<InstalledModule> known = installedModule(options.name);
    const std::string parent = ownModulesFolder();
    makeFolder(parent);
    AddedModule added{options.name, known && known->isOwn, options.isFirst, {}};
    const std::string folder = added.hasReplaced ? known->folder : parent + '/' + options.name;
    std::error_code error;
    const fs::file_status status = fs::symlink_status(folder, error);
    if (!fs::status_known(status))
        throw CBuildError(message("%s: cannot be read", folder) + systemReason(error.value()));
    added.report = fs::is_symlink(status)
                       ? buildInPlaceOfLink(bible, folder, parent + "/." + options.name + ".added",
                                            options.build, progress)
                       : buildModule(bible, folder, options.build, "", progress);
    if (options.isFirst)
        added.report.folder = makeFirst(options.name);
    return added;
}

} // namespace Kedrin::ModTool
