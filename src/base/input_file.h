#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace ut {

/// A regular file, open for reading at any offset; a character device that reads as empty (/dev/null) is
/// treated as an empty file. Anything else (a directory, a pipe, another device) is treated as a file that
/// cannot be opened, so that no file in a module folder can block a reader forever. A copy shares the open
/// file, which is closed with the last copy. Nothing throws; the owner turns failures into its own messages.
class CInputFile
{
public:
    /// If the file does not open, errno is the reason; 0 if the system would have opened it.
    explicit CInputFile(const char* fileName) noexcept;

    bool isOpen() const noexcept { return m_descriptor != nullptr; }

    /// Length in bytes when the file was opened; 0 when it is not open.
    std::uint64_t size() const noexcept { return m_byteCount; }

    /// Reads up to `byteCount` bytes from `byteOffset` on, in one system call if possible.
    /// @returns the bytes read: fewer than asked for at the end of the file or after an error
    std::size_t readAt(std::uint64_t byteOffset, void* buffer, std::size_t byteCount) const noexcept;

private:
    std::shared_ptr<const int> m_descriptor; ///< null: not open
    std::uint64_t m_byteCount = 0;
};

/// No text file of a module is nearly this long; a longer one is refused before any memory is allocated for
/// it.
inline constexpr std::uint64_t maxTextFileBytes = 64u << 20;

/// Reads a whole text file.
/// @returns false when it cannot be opened, cannot be read to its end, or is longer than maxTextFileBytes;
///          errno is the reason, EFBIG for the last
bool read_text_file(const char* fileName, std::string& content);

/// As above, but throws on failure.
/// @param operation  prefix of the reader's messages: "CTitles::CTitles()"
/// @throws std::ios_base::failure  "%s: error opening file %s"; "%s: file %s is longer than 64 MiB"; code()
///                                 is errno
std::string text_of_file(const char* operation, const char* fileName);

} // namespace ut
