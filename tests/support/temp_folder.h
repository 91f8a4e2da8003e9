#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include <cstdlib>

namespace test_support {

/// A new folder for one test, removed with all its content.
class TempFolder
{
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kedrin-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot make " + pattern);
        m_path = pattern;
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::string file(std::string_view name) const { return (m_path / name).string(); }

    /// Writes the bytes under the name and returns the file's path.
    std::string write(std::string_view name, std::string_view bytes) const
    {
        const std::filesystem::path target = m_path / name;
        std::filesystem::create_directories(target.parent_path());
        std::ofstream out(target, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return target.string();
    }

private:
    std::filesystem::path m_path;
};

} // namespace test_support
