#pragma once

#include <string>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

// What the reader's engine takes from the names of folders (tolvo_bible/folder_name.h), without the library that it uses
// for this, which takes longer to load than a query takes. Names are in native bytes: UTF-8, and bytes that are not
// valid UTF-8 are Windows-1251.

/// The folder's own name in Windows-1251: the title of a module without _Info_.txt. Of a path that ends with "." or "..",
/// that of the folder which is meant.
/// @param folder  native path, without a trailing '/'
std::string folderTitle(const std::string& folder);

/// By these the reader sorts names: without regard to case, then byte by byte.
std::pair<std::u16string, std::string> folderSortingKey(const std::string& name);

/// Names of the sub-folders of a folder in the reader's order; includes links to folders, excludes names that begin
/// with ".". Empty for a folder that does not exist.
std::vector<std::string> subFolders(const std::string& folder);

} // namespace Kedrin::ModTool
