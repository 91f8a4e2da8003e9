#pragma once

#include <fcntl.h>

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reports that a file or folder cannot be written.
/// @param reason  the system's
/// @throws CBuildError  "%s: cannot be written (%s)"
[[noreturn]] void failToWrite(const std::string& name, const std::string& reason);

/// Writes and fsyncs the file.
/// @throws CBuildError  "%s: cannot be written (%s)"
void writeDurably(const std::string& fileName, std::string_view content);

/// Fsyncs the directory.
/// @throws CBuildError  "%s: cannot be written (%s)"
void syncFolder(const std::string& folder);

/// Replaces the content of a file atomically: readers see the old or the new content. Does nothing if the
/// content is the same. A symbolic link is kept, and its target is replaced or created. If the target is not
/// a regular file (a pipe, a device), the content is written to it directly. Safe with concurrent processes.
/// If a process is killed, its temporary file ".NAME.new" is reused by the next one.
/// @throws CBuildError  "%s: cannot be written (%s)"
void replaceDurably(const std::string& fileName, std::string_view content);

/// Flags of open(2) for a file that only this program writes: links are not followed, and opening a pipe does
/// not block. whyNotRegular() detects anything else.
inline constexpr int ownFile = O_NOFOLLOW | O_NONBLOCK;

/// Why an open file cannot be taken for a regular one, as the reason of failToWrite(); "" if it is one.
std::string whyNotRegular(int descriptor);

/// The content of a small file; "" if there is none.
std::string contentOf(const std::string& fileName);

/// The parent folder of a path; "." for a bare name.
std::string folderOf(const std::string& path);

} // namespace Kedrin::ModTool
