#include "input_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ut {

namespace {

std::shared_ptr<const int> keepOpen(int descriptor)
{
    const auto closeIt = [](const int* owned) {
        ::close(*owned);
        delete owned;
    };
    return {new int(descriptor), closeIt};
}

} // namespace

CInputFile::CInputFile(const char* fileName) noexcept
{
    const int descriptor =
        ::open(fileName, O_RDONLY | O_CLOEXEC | O_NONBLOCK); // opening a pipe must not wait
    if (descriptor < 0)
        return;
    struct stat facts = {};
    if (::fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        ::close(descriptor);
        return;
    }
    m_descriptor = keepOpen(descriptor);
    m_byteCount = static_cast<std::uint64_t>(facts.st_size);
}

std::size_t CInputFile::readAt(std::uint64_t byteOffset, void* buffer, std::size_t byteCount) const noexcept
{
    if (!isOpen())
        return 0;
    std::size_t total = 0;
    while (total < byteCount) {
        const ssize_t got = ::pread(*m_descriptor, static_cast<char*>(buffer) + total, byteCount - total,
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
