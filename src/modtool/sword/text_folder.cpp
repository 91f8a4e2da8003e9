#include "text_folder.h"

#include "errors.h"
#include "messages.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = ".get-";

std::string absoluteValueOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value && *value == '/' ? value : "";
}

/// The folder of downloaded texts.
std::string downloadedTexts()
{
    const std::string data = absoluteValueOf("XDG_DATA_HOME");
    const std::string home = absoluteValueOf("HOME");
    if (data.empty() && home.empty())
        throw CBuildError(
            tr("XDG_DATA_HOME and HOME are not set, so there is no folder for your own modules"));
    return (data.empty() ? home + "/.local/share" : data) + "/kedrin/sword";
}

void removeLeftovers(const fs::path& parent)
{
    const auto yesterday = fs::file_time_type::clock::now() - std::chrono::hours(24);
    std::error_code error;
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->path().filename().string().starts_with(prefix) &&
            entry->last_write_time(ignored) < yesterday)
            fs::remove_all(entry->path(), ignored);
    }
}

} // namespace

CTextFolder::CTextFolder() : m_parent(downloadedTexts())
{
    std::error_code error;
    fs::create_directories(m_parent, error);
    removeLeftovers(m_parent);
    m_path = m_parent + '/' + std::string(prefix) + "XXXXXX";
    if (error || !::mkdtemp(m_path.data()))
        throw CBuildError(message("%s: cannot be created (%s); set XDG_DATA_HOME to a folder that you can "
                                  "write to",
                                  m_parent, error ? error.message() : std::strerror(errno)));
}

CTextFolder::~CTextFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
    ::rmdir(m_parent.c_str()); // only where it is empty
}

void CTextFolder::moveTo(const std::string& name) const
{
    const std::string place = m_parent + '/' + name;
    const std::string older = m_path + ".old";
    std::error_code error;
    std::error_code ignored;
    const bool isThere = fs::exists(fs::symlink_status(place, ignored));
    if (isThere)
        fs::rename(place, older, error);
    if (!error)
        fs::rename(m_path, place, error);
    if (error) {
        if (isThere)
            fs::rename(older, place, ignored);
        throw CBuildError(message("%s: cannot be written (%s)", place, error.message()));
    }
    fs::remove_all(older, ignored);
}

} // namespace Kedrin::ModTool
