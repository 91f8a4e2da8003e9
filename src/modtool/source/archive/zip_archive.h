#pragma once

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// A file of an archive, unpacked into memory.
struct ArchivedFile
{
    std::string name; ///< UTF-8, with its folders in the archive; for messages and order, never opened
    std::string content;
};

/// Whether a regular file begins as a zip archive does.
bool isZipFile(const std::string& fileName);

/// Unpacks a zip archive, except hidden files: names with a part that begins with a dot, or the folder __MACOSX.
/// Nothing is written; memory and time are bounded, whatever sizes the archive states.
/// @returns its files in the order of their names
/// @throws CBuildError
///     "%s: cannot be opened", "%s: is larger than 64 MiB"
///     "%s: not a valid zip archive: %s", with the library's message
///     "%s: contains more than 10000 files", "%s: contains more than 64 MiB"
std::vector<ArchivedFile> filesOfZip(const std::string& fileName);

} // namespace Kedrin::ModTool
