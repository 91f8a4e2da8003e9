#include "durable_file.h"

#include "build_error.h"
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

void failToWrite(const std::string& name, const std::string& reason)
{
    throw CBuildError(message("%s: cannot be written (%s)", name, reason));
}

namespace {

/// A descriptor that is closed in any case.
class CDescriptor
{
public:
    CDescriptor(const std::string& name, int flags)
        : m_name(name),
          m_descriptor(::open(name.c_str(), flags, 0666))
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

    /// Waits until no other descriptor of the file is locked.
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
    const CDescriptor file(fileName, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC);
    file.write(content);
    file.sync();
}

void syncFolder(const std::string& folder) { CDescriptor(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC).sync(); }

/// The name of the file beside is always the same, so that what an interrupted process left is taken over. Of several
/// that write at once, one holds the lock; the others find its content in place, or a new file to write.
void replaceDurably(const std::string& fileName, std::string_view content)
{
    const std::string folder = folderOf(fileName);
    const std::string beside = folder + "/." + std::filesystem::path(fileName).filename().string() + ".new";
    while (contentOf(fileName) != content) {
        const CDescriptor file(beside, O_WRONLY | O_CREAT | O_CLOEXEC);
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

std::string contentOf(const std::string& fileName)
{
    std::string content;
    return ut::read_text_file(fileName.c_str(), content) ? content : std::string();
}

std::string folderOf(const std::string& path)
{
    const std::string parent = std::filesystem::path(path).parent_path().string();
    return parent.empty() ? "." : parent;
}

} // namespace Kedrin::ModTool
