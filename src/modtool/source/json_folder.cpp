#include "json_folder.h"

#include "book_ids.h"
#include "errors.h"
#include "json_books.h"
#include "json_reader.h"
#include "messages.h"
#include "source_format.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <tuple>

namespace Kedrin::ModTool {

namespace {

/// Leading numbers are compared as numbers; names without one come last.
bool isBefore(const CSourceFile& a, const CSourceFile& b)
{
    const auto number = [](const CSourceFile& file) {
        return beginsWithDigit(file) ? std::strtoul(file.name().c_str(), nullptr, 10) : ULONG_MAX;
    };
    return std::tuple(number(a), a.path()) < std::tuple(number(b), b.path());
}

std::vector<CSourceFile> jsonFiles(const std::vector<CSourceFile>& files)
{
    std::vector<CSourceFile> named, all;
    for (const CSourceFile& file : files) {
        if (!hasJsonExtension(file.name()) || !file.isRegular())
            continue;
        all.push_back(file);
        if (!bookOfFile(file.name()).empty())
            named.push_back(file);
    }
    std::vector<CSourceFile>& chosen = named.empty() ? all : named;
    std::sort(chosen.begin(), chosen.end(), isBefore);
    return std::move(chosen);
}

} // namespace

bool hasJsonFiles(const std::vector<CSourceFile>& files) { return !jsonFiles(files).empty(); }

SourceBible readJsonFiles(const std::string& source, const std::vector<CSourceFile>& all,
                          const std::string& encoding)
{
    const std::vector<CSourceFile> files = jsonFiles(all);
    if (files.empty())
        throw CBuildError(message("%s: contains no JSON file (*.json, *.js)", source));
    CJsonReader reader;
    std::uint64_t byteCount = 0;
    for (const CSourceFile& file : files) {
        const std::string content = file.text(encoding);
        addBytes(byteCount, content.size(), source);
        reader.read(file.path(), content, file.name());
    }
    SourceBible bible = reader.finish(source);
    if (!std::all_of(files.begin(), files.end(), beginsWithDigit))
        orderBooks(bible, BookOrder::protestant);
    bible.format = formatName(SourceFormat::json);
    return bible;
}

} // namespace Kedrin::ModTool
