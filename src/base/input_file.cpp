#include "input_file.h"

#include "io_failure.h"
#include "ut_utils.h"

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

bool readsAsEmpty(int descriptor)
{
    char byte = 0;
    return ::read(descriptor, &byte, 1) == 0;
}

} // namespace

CInputFile::CInputFile(const char* fileName) noexcept
{
    constexpr int withoutWaiting = O_NONBLOCK | O_NOCTTY; // for a pipe or a terminal
    const int descriptor = ::open(fileName, O_RDONLY | O_CLOEXEC | withoutWaiting);
    if (descriptor < 0)
        return;
    struct stat facts = {};
    ::fstat(descriptor, &facts);
    if (!S_ISREG(facts.st_mode) && !(S_ISCHR(facts.st_mode) && readsAsEmpty(descriptor))) {
        ::close(descriptor);
        errno = 0;
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
    const CInputFile file(fileName);
    if (!file.isOpen())
        return false;
    if (file.size() > maxTextFileBytes) {
        errno = EFBIG;
        return false;
    }
    content.resize(static_cast<std::size_t>(file.size()));
    errno = 0; // a file that is shorter than the system said is no error of the system
    return file.readAt(0, content.data(), content.size()) == content.size();
}

std::string text_of_file(const char* operation, const char* fileName)
{
    std::string content;
    if (read_text_file(fileName, content))
        return content;
    const int reason = errno;
    if (reason == EFBIG)
        throw CIoFailure(format("%s: file %s is longer than 64 MiB", operation, fileName), reason);
    throw CIoFailure(format("%s: error opening file %s", operation, fileName), reason);
}

} // namespace ut
