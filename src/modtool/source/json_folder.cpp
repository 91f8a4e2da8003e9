#include "json_folder.h"

#include "ascii.h"
#include "book_ids.h"
#include "errors.h"
#include "json_books.h"
#include "json_reader.h"
#include "messages.h"
#include "module_format.h"
#include "text_input.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

bool beginsWithDigit(const fs::path& file) { return isAsciiDigit(file.filename().string().front()); }

/// Leading numbers are compared as numbers; names without one come last.
bool isBefore(const fs::path& a, const fs::path& b)
{
    const auto number = [](const fs::path& file) {
        return beginsWithDigit(file) ? std::strtoul(file.filename().c_str(), nullptr, 10) : ULONG_MAX;
    };
    return std::pair(number(a), a) < std::pair(number(b), b);
}

std::vector<fs::path> jsonFiles(const std::string& folder)
{
    std::vector<fs::path> named, all;
    std::error_code error, ignored;
    for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error)) {
        const std::string name = file->path().string();
        const bool isHidden = file->path().filename().string().starts_with('.');
        if (isHidden || !hasJsonExtension(name) || !file->is_regular_file(ignored))
            continue;
        all.push_back(file->path());
        if (!bookOfFile(name).empty())
            named.push_back(file->path());
    }
    std::vector<fs::path>& files = named.empty() ? all : named;
    std::sort(files.begin(), files.end(), isBefore);
    return std::move(files);
}

} // namespace

bool hasJsonFiles(const std::string& folder) { return !jsonFiles(folder).empty(); }

SourceBible readJsonFolder(const std::string& folder, const std::string& encoding)
{
    const std::vector<fs::path> files = jsonFiles(folder);
    if (files.empty())
        throw CBuildError(message("%s: contains no JSON file (*.json, *.js)", folder));
    CJsonReader reader;
    std::uint64_t byteCount = 0;
    for (const fs::path& file : files) {
        const std::string content = readText(file.string(), encoding);
        byteCount += content.size();
        if (byteCount > maxSourceBytes)
            throw CBuildError(message("%s: contains more than 64 MiB", folder));
        reader.read(file.string(), content, file.filename().string());
    }
    SourceBible bible = reader.finish(folder);
    if (!std::all_of(files.begin(), files.end(), beginsWithDigit))
        orderBooks(bible, BookOrder::protestant);
    return bible;
}

} // namespace Kedrin::ModTool
