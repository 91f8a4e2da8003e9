#include "sword_repository.h"

#include "ascii.h"
#include "errors.h"
#include "fetched_text.h"
#include "messages.h"
#include "text_folder.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace Kedrin::ModTool {

namespace {

namespace fs = std::filesystem;

constexpr const char* catalogueName = "mods.d.tar.gz";
constexpr std::size_t maxDescriptions = 20000;

[[noreturn]] void fail(const std::string& place, const std::string& what)
{
    throw CBuildError(place + ": " + what);
}

std::string contentOf(const fs::path& fileName)
{
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Valid UTF-8 on one line.
std::string plainValue(const std::string& value)
{
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(value);
    for (std::int32_t i = 0; i < text.length(); ++i)
        if (u_iscntrl(text[i]))
            text.replace(i, 1, u' ');
    std::string utf8;
    text.toUTF8String(utf8);
    return utf8;
}

bool isBible(const SwordDescription& description)
{
    const std::string driver = lower(description.entry("ModDrv"));
    return driver == "ztext" || driver == "ztext4" || driver == "rawtext" || driver == "rawtext4";
}

OfferedText offeredText(const SwordDescription& description)
{
    OfferedText text{description.name, plainValue(description.entry("Lang")),
                     plainValue(description.entry("Description")), 0};
    const std::string size = description.entry("InstallSize");
    std::from_chars(size.data(), size.data() + size.size(), text.byteCount);
    return text;
}

std::vector<std::string> configurationsIn(const fs::path& folder, const TransferLimits& limits)
{
    std::vector<std::string> files;
    std::error_code error;
    for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error)) {
        std::error_code ignored;
        if (file->path().extension() != ".conf" || !file->is_regular_file(ignored))
            continue;
        if (file->file_size(ignored) > limits.byteCount || files.size() == maxDescriptions)
            fail(file->path(), tr("is not a catalogue of SWORD texts"));
        files.push_back(contentOf(file->path()));
    }
    return files;
}

/// The files of a repository's catalogue.
std::vector<std::string> catalogueOf(const std::string& address, bool isRemote, const std::string& folder,
                                     const TransferLimits& limits, IProgress& progress)
{
    const fs::path local = fs::path(address) / configurationFolder;
    std::error_code ignored;
    if (!isRemote && fs::is_directory(local, ignored))
        return configurationsIn(local, limits);
    const std::string fileName = folder + '/' + catalogueName;
    if (!transferFile(address, catalogueName, fileName, limits, progress))
        fail(address, tr("nothing answers there, or it is not a repository of SWORD texts"));
    const std::string packed = contentOf(fileName);
    fs::remove(fileName, ignored);
    try {
        return readSwordCatalogue(packed);
    } catch (const CBuildError& error) {
        fail(address + '/' + catalogueName, error.what());
    }
}

/// The parts of a text between '|'.
std::vector<std::string> split(const std::string& text)
{
    std::vector<std::string> parts{""};
    for (const char c : text)
        if (c == '|')
            parts.emplace_back();
        else
            parts.back() += c;
    return parts;
}

/// Adds the repositories of a configuration: HTTPSource=name|host|folder, and so on.
void addRepositories(const std::string& configuration, std::vector<SwordRepository>& repositories)
{
    const std::vector<std::pair<std::string, std::string>> kinds = {
        {"HTTPSource", "http://"}, {"HTTPSSource", "https://"}, {"FTPSource", "ftp://"}, {"DIRSource", ""}};
    for (const SwordDescription& section : readSwordConfiguration(configuration))
        for (const auto& [key, value] : section.entries)
            for (const auto& [kind, scheme] : kinds) {
                const std::vector<std::string> parts = split(value);
                if (key != kind || parts.size() < 3)
                    continue;
                std::string address = scheme + (scheme.empty() ? "" : parts[1]) + parts[2];
                repositories.push_back(
                    {plainValue(parts[0]), address.substr(0, address.find_last_not_of('/') + 1)});
            }
}

} // namespace

std::vector<SwordDescription> biblesOf(const SwordRepository& repository, const std::string& folder,
                                       const TransferLimits& limits, IProgress& progress)
{
    std::vector<SwordDescription> bibles;
    for (const std::string& file :
         catalogueOf(repository.address, repository.isRemote(), folder, limits, progress))
        for (SwordDescription& description : readSwordConfiguration(file))
            if (isBible(description) && isSafeName(description.name) && bibles.size() < maxDescriptions)
                bibles.push_back(std::move(description));
    std::sort(bibles.begin(), bibles.end(),
              [](const auto& a, const auto& b) { return lower(a.name) < lower(b.name); });
    return bibles;
}

std::vector<SwordRepository> CSwordRepositories::known() const
{
    std::vector<SwordRepository> repositories;
    const char* home = std::getenv("HOME");
    for (const std::string& folder :
         {std::string(home ? home : "") + "/.sword", std::string("/usr/share/sword")})
        addRepositories(contentOf(folder + "/InstallMgr/InstallMgr.conf"), repositories);
    return repositories;
}

std::vector<OfferedText> CSwordRepositories::offered(const SwordRepository& repository,
                                                     IProgress& progress) const
{
    const CTextFolder folder;
    std::vector<OfferedText> texts;
    for (const SwordDescription& description : biblesOf(repository, folder.path(), m_limits, progress))
        texts.push_back(offeredText(description));
    return texts;
}

std::unique_ptr<IFetchedText> CSwordRepositories::fetch(const SwordRepository& repository,
                                                        const std::string& name, IProgress& progress) const
{
    return std::make_unique<CFetchedText>(repository, name, m_limits, progress);
}

} // namespace Kedrin::ModTool
