#pragma once

#include <string>
#include <vector>

namespace Kedrin::Tolvo {

/// The last component of a folder's path (native bytes), in Windows-1251: the title of a module that has none. Bytes that
/// are no UTF-8 are taken for Windows-1251, in which older systems wrote such names.
std::string folder_name(const std::string& folderPath);

/// Names of the sub-folders of a folder, in native bytes, sorted by name without regard to case; links to folders
/// count, names that begin with "." do not. A folder that does not exist has none.
std::vector<std::string> sub_folders(const std::string& folderPath);

} // namespace Kedrin::Tolvo
