#pragma once

#include "input.h"
#include "module_format.h"
#include "temp_folder.h"

#include <array>
#include <cstdlib>
#include <filesystem>

namespace fuzz {

/// The folder of a module whose ten files are in memory, so that they can be replaced thousands of times.
class ModuleInput
{
public:
    ModuleInput()
    {
        for (std::size_t i = 0; i < m_descriptors.size(); ++i) {
            m_descriptors[i] = ::memfd_create("kedrin-fuzz", MFD_CLOEXEC);
            std::filesystem::create_symlink("/proc/self/fd/" + std::to_string(m_descriptors[i]),
                                            m_folder.path() / names[i]);
        }
    }
    ~ModuleInput()
    {
        for (const int descriptor : m_descriptors)
            ::close(descriptor);
    }
    ModuleInput(const ModuleInput&) = delete;
    ModuleInput& operator=(const ModuleInput&) = delete;

    std::string path() const { return m_folder.path().string(); }

    /// Splits an input into ten files in the order of `moduleFileNames`: each is preceded by two bytes, low
    /// first, with its length; the last one is the rest.
    void take(std::string_view input) const
    {
        for (std::size_t i = 0; i + 1 < names.size(); ++i) {
            const TwoFiles files = splitInTwo(input);
            write(m_descriptors[i], files.first);
            input = files.second;
        }
        write(m_descriptors.back(), input);
    }

private:
    static constexpr const auto& names = Kedrin::ModTool::moduleFileNames;

    static void write(int descriptor, std::string_view bytes)
    {
        if (::ftruncate(descriptor, 0) != 0 ||
            ::pwrite(descriptor, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
            std::abort();
    }

    test_support::TempFolder m_folder;
    std::array<int, names.size()> m_descriptors{};
};

} // namespace fuzz
