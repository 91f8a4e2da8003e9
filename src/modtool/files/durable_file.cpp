#include "durable_file.h"

#include "errors.h"
#include "input_file.h"
#include "messages.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

void failToWrite(const std::string& name, const std::string& reason)
{
    throw CBuildError(message("%s: cannot be written (%s)", name, reason));
}

std::string whyNotRegular(int descriptor)
{
    struct stat facts
    {
    };
    if (::fstat(descriptor, &facts) != 0)
        return std::strerror(errno);
    return S_ISREG(facts.st_mode) ? "" : tr("it is not a regular file");
}

namespace {

/// Owns a file descriptor.
class CDescriptor
{
public:
    CDescriptor(const std::string& name, int flags)
        : m_name(name),
          m_descriptor(::open(name.c_str(), flags | O_CLOEXEC, 0666))
    {
        if (m_descriptor < 0)
            failToWrite(m_name, std::strerror(errno));
    }
    ~CDescriptor() { ::close(m_descriptor); }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    void write(std::string_view content) const
    {
        while (!content.empty()) {
            const ssize_t written = ::write(m_descriptor, content.data(), content.size());
            if (written < 0 && errno != EINTR)
                failToWrite(m_name, std::strerror(errno));
            if (written > 0)
                content.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    void sync() const
    {
        if (::fsync(m_descriptor) != 0)
            failToWrite(m_name, std::strerror(errno));
    }

    void requireRegular() const
    {
        if (const std::string reason = whyNotRegular(m_descriptor); !reason.empty())
            failToWrite(m_name, reason);
    }

    /// Waits for an exclusive lock on the file.
    void lock() const
    {
        while (::flock(m_descriptor, LOCK_EX) != 0)
            if (errno != EINTR)
                failToWrite(m_name, std::strerror(errno));
    }

    void empty() const
    {
        if (::ftruncate(m_descriptor, 0) != 0)
            failToWrite(m_name, std::strerror(errno));
    }

    /// Whether the file still has the name it was opened by.
    bool isNamed() const
    {
        struct stat held
        {
        };
        struct stat named
        {
        };
        return ::fstat(m_descriptor, &held) == 0 && ::stat(m_name.c_str(), &named) == 0 &&
               held.st_dev == named.st_dev && held.st_ino == named.st_ino;
    }

private:
    const std::string& m_name;
    int m_descriptor;
};

} // namespace

void writeDurably(const std::string& fileName, std::string_view content)
{
    const CDescriptor file(fileName, O_WRONLY | O_CREAT | O_TRUNC);
    file.write(content);
    file.sync();
}

void syncFolder(const std::string& folder) { CDescriptor(folder, O_RDONLY | O_DIRECTORY).sync(); }

namespace {

/// The target of a link, whether or not it exists; any other name unchanged.
std::string withoutLinks(const std::string& fileName)
{
    constexpr int mostLinks = 40; // as the system follows
    fs::path path = fileName;
    std::error_code ignored;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, ignored)); ++links) {
        if (links == mostLinks)
            failToWrite(fileName, std::strerror(ELOOP));
        path = path.parent_path() / fs::read_symlink(path, ignored);
    }
    return path.string();
}

/// Fixed temporary name, so leftovers are reused; concurrent writers serialise on its lock.
void replaceByRename(const std::string& fileName, std::string_view content)
{
    const std::string folder = folderOf(fileName);
    const std::string beside = folder + "/." + fs::path(fileName).filename().string() + ".new";
    while (contentOf(fileName) != content) {
        const CDescriptor file(beside, O_WRONLY | O_CREAT | ownFile);
        file.requireRegular();
        file.lock();
        if (!file.isNamed())
            continue;
        try {
            file.empty();
            file.write(content);
            file.sync();
            if (::rename(beside.c_str(), fileName.c_str()) != 0)
                failToWrite(fileName, std::strerror(errno));
        } catch (...) {
            ::unlink(beside.c_str());
            throw;
        }
        syncFolder(folder);
        return;
    }
}

} // namespace

void replaceDurably(const std::string& fileName, std::string_view content)
{
    struct stat facts
    {
    };
    const bool exists = ::stat(fileName.c_str(), &facts) == 0;
    if (exists && !S_ISREG(facts.st_mode))
        CDescriptor(fileName, O_WRONLY | O_NOCTTY).write(content);
    else
        replaceByRename(withoutLinks(fileName), content);
}

std::string contentOf(const std::string& fileName)
{
    std::string content;
    return ut::read_text_file(fileName.c_str(), content) ? content : std::string();
}

std::string folderOf(const std::string& path)
{
    const std::string parent = fs::path(path).parent_path().string();
    return parent.empty() ? "." : parent;
}

} // namespace Kedrin::ModTool
