#pragma once

#include <fcntl.h>

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Says that a file or folder cannot be written.
/// @param reason  the system's
/// @throws CBuildError  "%s: cannot be written (%s)"
[[noreturn]] void failToWrite(const std::string& name, const std::string& reason);

/// Writes a new file whole and has the disk keep it.
/// @throws CBuildError  "%s: cannot be written (%s)"
void writeDurably(const std::string& fileName, std::string_view content);

/// Has the disk keep a folder's list of names.
/// @throws CBuildError  "%s: cannot be written (%s)"
void syncFolder(const std::string& folder);

/// Replaces a file by another content in one step: whoever reads it sees the old or the new one. Does nothing where
/// the content is the same. A link stays, and the file that it leads to is replaced or made. What is no regular file (a
/// pipe, a device) stays too: the content is written into it.
/// Several processes may do it at once. What one leaves beside, as ".NAME.new", when it is killed is taken over by the
/// next that writes.
/// @throws CBuildError  "%s: cannot be written (%s)"
void replaceDurably(const std::string& fileName, std::string_view content);

/// For open(2) of a file that only this program writes: what a link under its name leads to is none, and a pipe is not
/// waited for. isRegularFile() tells of all else.
inline constexpr int ownFile = O_NOFOLLOW | O_NONBLOCK;
bool isRegularFile(int descriptor);

/// The content of a small file; "" where there is none.
std::string contentOf(const std::string& fileName);

/// The folder that holds a path's last component: "." for a bare name.
std::string folderOf(const std::string& path);

} // namespace Kedrin::ModTool
