#include "input_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ut {

CInputFile::CInputFile(const char* fileName) noexcept
    : m_descriptor(::open(fileName, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) // opening a pipe must not wait
{
    struct stat facts = {};
    if (m_descriptor < 0)
        return;
    if (::fstat(m_descriptor, &facts) == 0 && S_ISREG(facts.st_mode)) {
        m_byteCount = static_cast<std::uint64_t>(facts.st_size);
        return;
    }
    ::close(m_descriptor);
    m_descriptor = -1;
}

CInputFile::~CInputFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

std::size_t CInputFile::readAt(std::uint64_t byteOffset, void* buffer, std::size_t byteCount) noexcept
{
    std::size_t total = 0;
    while (total < byteCount) {
        const ssize_t got = ::pread(m_descriptor, static_cast<char*>(buffer) + total, byteCount - total,
                                    static_cast<off_t>(byteOffset + total));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        total += static_cast<std::size_t>(got);
    }
    return total;
}

bool read_text_file(const char* fileName, std::string& content)
{
    CInputFile file(fileName);
    if (!file.isOpen() || file.size() > maxTextFileBytes)
        return false;
    content.resize(static_cast<std::size_t>(file.size()));
    return file.readAt(0, content.data(), content.size()) == content.size();
}

} // namespace ut
