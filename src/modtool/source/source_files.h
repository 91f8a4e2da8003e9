#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// A file of a source that has several: of a folder, or of an archive.
class CSourceFile
{
public:
    /// A file of a folder.
    explicit CSourceFile(const std::filesystem::path& path);

    /// A file of an archive, unpacked.
    CSourceFile(const std::string& archive, const std::string& name, std::string content);

    /// For messages.
    const std::string& path() const { return m_path; }

    /// Without folders.
    std::string name() const { return std::filesystem::path(m_path).filename().string(); }

    bool isRegular() const;

    /// The first bytes; "" of what is not a regular file.
    std::string head() const;

    /// As text.
    /// @throws CBuildError  what readText() throws
    std::string text(const std::string& encoding, std::string* recognised = nullptr) const;

    /// The bytes of a file of an archive, otherwise nullptr.
    const std::string* content() const { return m_content.get(); }

private:
    std::string m_path;
    std::shared_ptr<const std::string> m_content; ///< shared by copies
};

/// The files of a folder that are not hidden, in the order of their names.
/// @throws CBuildError  "%s: cannot be read"
std::vector<CSourceFile> filesOfFolder(const std::string& folder);

/// The files of a zip archive, in the order of their names.
/// @throws CBuildError  what filesOfZip() throws
std::vector<CSourceFile> filesOfArchive(const std::string& fileName);

/// Adds the bytes of a file to those of its source.
/// @throws CBuildError  "%s: contains more than 64 MiB"
void addBytes(std::uint64_t& byteCount, std::size_t added, const std::string& source);

bool beginsWithDigit(const CSourceFile& file);

} // namespace Kedrin::ModTool
