#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return std::string_view(reinterpret_cast<const char*>(data), size);
}

/// A file that lives in memory, with a path by which a reader opens it; gone with the object.
class MemoryFile
{
public:
    explicit MemoryFile(std::string_view bytes) : m_descriptor(::memfd_create("fuzzed", MFD_CLOEXEC))
    {
        if (m_descriptor < 0 || ::write(m_descriptor, bytes.data(), bytes.size()) != ssize_t(bytes.size()))
            throw std::runtime_error("cannot make a file in memory");
    }
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

private:
    int m_descriptor;
};

/// Two files out of one input: two bytes, low first, say how long the first file is; it follows, then the second.
struct TwoFiles
{
    std::string_view first;
    std::string_view second;
};

inline TwoFiles splitInTwo(std::string_view input)
{
    if (input.size() < 2)
        return {};
    const auto low = static_cast<unsigned char>(input[0]);
    const auto high = static_cast<unsigned char>(input[1]);
    input.remove_prefix(2);
    const std::string_view first = input.substr(0, low + 256u * high);
    return {first, input.substr(first.size())};
}

} // namespace fuzz
