#include "durable_file.h"

#include "build_error.h"
#include "input_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

[[noreturn]] void failToWrite(const std::string& fileName, int error)
{
    throw CBuildError(fileName + ": cannot be written (" + std::strerror(error) + ')');
}

/// A descriptor that is closed in any case.
class CDescriptor
{
public:
    CDescriptor(const std::string& name, int flags)
        : m_name(name),
          m_descriptor(::open(name.c_str(), flags, 0666))
    {
        if (m_descriptor < 0)
            failToWrite(m_name, errno);
    }
    ~CDescriptor() { ::close(m_descriptor); }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    void write(std::string_view content) const
    {
        while (!content.empty()) {
            const ssize_t written = ::write(m_descriptor, content.data(), content.size());
            if (written < 0 && errno != EINTR)
                failToWrite(m_name, errno);
            if (written > 0)
                content.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    void sync() const
    {
        if (::fsync(m_descriptor) != 0)
            failToWrite(m_name, errno);
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

void replaceDurably(const std::string& fileName, std::string_view content)
{
    if (contentOf(fileName) == content)
        return;
    const std::string folder = folderOf(fileName);
    const std::string beside = folder + "/." + std::filesystem::path(fileName).filename().string() + '.' +
                               std::to_string(::getpid()) + ".new";
    try {
        writeDurably(beside, content);
        if (::rename(beside.c_str(), fileName.c_str()) != 0)
            failToWrite(fileName, errno);
    } catch (...) {
        ::unlink(beside.c_str());
        throw;
    }
    syncFolder(folder);
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
