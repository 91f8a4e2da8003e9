#pragma once

#include <string>
#include <vector>

namespace Kedrin::Tolvo {

/// The last component of a folder's path (native bytes), in Windows-1251: the title of a module without one.
/// Bytes that are not valid UTF-8 are taken as Windows-1251, in which older systems wrote such names.
std::string folder_name(const std::string& folderPath);

/// Names of the sub-folders of a folder, in native bytes, sorted by name, ignoring case; includes links to
/// folders, excludes names that begin with ".". Empty for a folder that does not exist.
std::vector<std::string> sub_folders(const std::string& folderPath);

} // namespace Kedrin::Tolvo
