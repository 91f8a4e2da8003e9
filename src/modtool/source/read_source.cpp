#include "read_source.h"

#include "ascii.h"
#include "source_folder.h"
#include "text_input.h"
#include "unknown_books.h"
#include "zip_archive.h"

#include <filesystem>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

SourceBible readFile(const std::string& path, const ReadOptions& options)
{
    return isZipFile(path) ? readSourceArchive(path, options) : readSingleFile(path, options);
}

/// Missing titles are taken from the file name or from a longer title.
void nameAfterFile(SourceInfo& info, const std::string& path, bool isFolder)
{
    const fs::path file = fs::path(path).has_filename() ? fs::path(path) : fs::path(path).parent_path();
    if (isBlank(info.fullTitle) && path != standardInput)
        info.fullTitle = (isFolder ? file.filename() : file.stem()).string();
    if (isBlank(info.shortTitle))
        info.shortTitle = info.fullTitle;
    if (isBlank(info.abbreviatedTitle))
        info.abbreviatedTitle = info.shortTitle;
}

} // namespace

SourceBible readSourceFile(const std::string& path, const ReadOptions& options)
{
    std::error_code ignored;
    const bool isFolder = fs::is_directory(path, ignored);
    SourceBible bible = isFolder ? readSourceFolder(path, options) : readFile(path, options);
    if (!options.skipUnknownBooks)
        refuseUnknownBooks(bible);
    nameAfterFile(bible.info, path, isFolder);
    orderBooks(bible, options.order);
    return bible;
}

} // namespace Kedrin::ModTool
