#include "module_folder.h"

#include "durable_file.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

/// The path without links and trailing slash.
std::string plainPath(const std::string& path)
{
    std::error_code error;
    fs::path plain = fs::weakly_canonical(path, error);
    if (error)
        failToWrite(path, error.message());
    if (!plain.has_filename())
        plain = plain.parent_path();
    return plain.string();
}

void checkReplaceable(const std::string& path)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error); // a remaining link is dangling
    if (!fs::exists(status))
        return;
    if (!fs::is_directory(status))
        throw CBuildError(message("%s: is not a folder", path));
    if (!fs::exists(path + '/' + titlesFileName) && !fs::is_empty(path, error))
        throw CBuildError(message("%s: is not empty and contains no module, so it is not replaced", path));
}

} // namespace

void checkOutside(const std::string& fileName, const std::string& folder)
{
    const fs::path whole = plainPath(folder);
    checkReplaceable(whole.string());
    std::error_code ignored;
    const fs::path file = fs::weakly_canonical(fileName, ignored);
    if (std::mismatch(whole.begin(), whole.end(), file.begin(), file.end()).first == whole.end())
        throw CBuildError(
            message("%s: is inside the module's folder, which is replaced as a whole", fileName));
}

CModuleFolder::CModuleFolder(const std::string& path) : m_path(plainPath(path)), m_parent(folderOf(m_path))
{
    const std::string hidden = m_parent + "/." + fs::path(m_path).filename().string();
    m_beside = hidden + ".building";
    m_replaced = hidden + ".replaced";
    m_lockName = hidden + ".lock";
    checkReplaceable(m_path);
    std::error_code error;
    fs::create_directories(m_parent, error);
    if (error)
        failToWrite(m_parent, error.message());
    lock();
    try {
        removeLeftovers();
        if (!fs::create_directory(m_beside, error))
            failToWrite(m_beside, error.message());
    } catch (...) {
        unlock();
        throw;
    }
}

CModuleFolder::~CModuleFolder()
{
    std::error_code ignored;
    fs::remove_all(m_beside, ignored);
    unlock();
}

/// Release unlinks the lock file; a lock on an unlinked file is void, so retry.
void CModuleFolder::lock()
{
    for (;;) {
        m_lock = ::open(m_lockName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | ownFile, 0666);
        if (m_lock < 0)
            failToWrite(m_lockName, std::strerror(errno));
        if (const std::string reason = whyNotRegular(m_lock); !reason.empty()) {
            ::close(m_lock);
            failToWrite(m_lockName, reason);
        }
        if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            ::close(m_lock);
            if (error == EWOULDBLOCK)
                throw CFolderBusy(message("%s: another build of this folder is running", m_path));
            failToWrite(m_lockName, std::strerror(error));
        }
        if (isNamed())
            return;
        ::close(m_lock);
    }
}

/// Whether the lock still has its name, which another process may have removed since it was opened.
bool CModuleFolder::isNamed() const
{
    struct stat held
    {
    };
    struct stat named
    {
    };
    if (::fstat(m_lock, &held) == 0 && ::stat(m_lockName.c_str(), &named) == 0)
        return held.st_ino == named.st_ino;
    if (errno == ENOENT)
        return false;
    const int error = errno;
    ::close(m_lock);
    failToWrite(m_lockName, std::strerror(error));
}

void CModuleFolder::unlock() const
{
    ::unlink(m_lockName.c_str()); // while it is held, so that no other process can hold it
    ::close(m_lock);
}

void CModuleFolder::removeLeftovers()
{
    std::error_code error;
    if (fs::exists(m_replaced, error) && !fs::exists(m_path, error))
        fs::rename(m_replaced, m_path, error); // interrupted while replacing
    fs::remove_all(m_replaced, error);
    if (!error)
        fs::remove_all(m_beside, error);
    if (error)
        failToWrite(m_beside, error.message());
}

void CModuleFolder::write(std::string_view name, std::string_view content)
{
    writeDurably(m_beside + '/' + std::string(name), content);
}

void CModuleFolder::publish()
{
    syncFolder(m_beside);
    moveIntoPlace();
    try {
        syncFolder(m_parent);
    } catch (...) {
        rollBack();
        throw;
    }
    std::error_code ignored;
    fs::remove_all(m_replaced, ignored);
}

/// The module of before is beside then, and goes with the destructor; on disks that cannot exchange folders it is where
/// replaced ones are.
void CModuleFolder::moveIntoPlace()
{
    if (::renameat2(AT_FDCWD, m_beside.c_str(), AT_FDCWD, m_path.c_str(), RENAME_EXCHANGE) == 0)
        return;
    const bool isFree = errno == ENOENT;
    const bool isMoved = errno == EINVAL && ::rename(m_path.c_str(), m_replaced.c_str()) == 0;
    if ((isFree || isMoved) && ::rename(m_beside.c_str(), m_path.c_str()) == 0)
        return;
    const int error = errno;
    if (isMoved)
        ::rename(m_replaced.c_str(), m_path.c_str());
    failToWrite(m_path, std::strerror(error));
}

void CModuleFolder::rollBack()
{
    if (::renameat2(AT_FDCWD, m_beside.c_str(), AT_FDCWD, m_path.c_str(), RENAME_EXCHANGE) == 0)
        return;
    ::rename(m_path.c_str(), m_beside.c_str());
    ::rename(m_replaced.c_str(), m_path.c_str());
}

} // namespace Kedrin::ModTool
