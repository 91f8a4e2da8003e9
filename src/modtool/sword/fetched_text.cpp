#include "fetched_text.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "sword_library.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace Kedrin::ModTool {

namespace {

namespace fs = std::filesystem;

constexpr const char* dataFolder = "text";

/// Of the description what may be used, with the folder that this program puts the text in.
SwordDescription ownDescription(const SwordDescription& description)
{
    SwordDescription own{description.name, {{"DataPath", std::string("./") + dataFolder + '/'}}};
    for (const auto& [key, value] : description.entries)
        if (isSafeName(key) && key != "DataPath" && !key.starts_with("GlobalOptionFilter") &&
            !key.starts_with("LocalStripFilter") && key != "InstallSize")
            own.entries.emplace_back(key, value);
    return own;
}

/// The folder of the text's files in the repository, with '/' at its end.
std::string dataPath(const SwordDescription& description)
{
    const std::string path = description.entry("DataPath");
    return path.substr(path.starts_with("./") ? 2 : 0) + (path.ends_with('/') ? "" : "/");
}

/// @throws CBuildError  "%s: cannot be written (%s)"
void check(const std::error_code& error, const std::string& path)
{
    if (error)
        throw CBuildError(message("%s: cannot be written (%s)", path, error.message()));
}

} // namespace

CFetchedText::CFetchedText(const SwordRepository& repository, const std::string& name,
                           const TransferLimits& limits, IProgress& progress)
    : m_limits(limits),
      m_progress(progress)
{
    const SwordDescription description = describe(repository, name);
    m_name = description.name;
    download(repository, description);
    const CSwordLibrary library(m_folder.path());
    m_bible = library.read(
        m_name, [&](std::size_t done, std::size_t total) { progress.show(tr("reading"), done, total); });
}

SwordDescription CFetchedText::describe(const SwordRepository& repository, const std::string& name)
{
    const std::vector<SwordDescription> bibles = biblesOf(repository, m_folder.path(), m_limits, m_progress);
    const auto found = std::find_if(bibles.begin(), bibles.end(), [&](const SwordDescription& each) {
        return lower(each.name) == lower(name);
    });
    if (found == bibles.end())
        throw CNotFound(message("%s offers no Bible named \"%s\"", repository.name, name));
    return *found;
}

void CFetchedText::download(const SwordRepository& repository, const SwordDescription& description)
{
    const TextStorage storage = storageOf(description);
    const std::string folder = m_folder.path() + '/' + dataFolder;
    std::error_code error;
    for (const std::string& made : {folder, m_folder.path() + '/' + configurationFolder}) {
        fs::create_directory(made, error);
        check(error, made);
    }
    std::size_t testaments = 0;
    for (const TestamentFiles& files : storage.testaments)
        if (downloadTestament(repository, description, files)) {
            checkFiles(folder, files, storage);
            ++testaments;
        }
    if (testaments == 0)
        throw CBuildError(message("%s: the files of %s are missing", repository.address, m_name));
    if (testaments != storage.testaments.size()) // throws if it is the server that is missing
        biblesOf(repository, m_folder.path(), m_limits, m_progress);
    std::ofstream(m_folder.path() + '/' + configurationFolder + '/' + m_name + ".conf", std::ios::binary)
        << swordConfiguration(ownDescription(description));
}

bool CFetchedText::downloadTestament(const SwordRepository& repository, const SwordDescription& description,
                                     const TestamentFiles& files)
{
    const std::string folder = m_folder.path() + '/' + dataFolder + '/';
    std::error_code error;
    bool isThere = false;
    for (const std::string& name : {files.index, files.places, files.text})
        if (!name.empty() && transferFile(repository.address, dataPath(description) + name, folder + name,
                                          m_limits, m_progress)) {
            isThere = fs::file_size(folder + name, error) != 0 || isThere;
            check(error, folder + name);
        }
    for (const std::string& name : {files.index, files.places, files.text}) {
        if (isThere && !name.empty()) { // an empty file is not always sent
            std::ofstream(folder + name, std::ios::binary | std::ios::app);
        } else if (!name.empty()) {
            fs::remove(folder + name, error);
            check(error, folder + name);
        }
    }
    return isThere;
}

} // namespace Kedrin::ModTool
