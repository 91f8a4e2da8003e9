#include "folder_names.h"

#include "cp1251.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

icu::UnicodeString decoded(const std::string& native)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(native.data());
    const auto length = static_cast<std::int32_t>(native.size());
    icu::UnicodeString text;
    for (std::int32_t next = 0; next < length;) {
        const std::int32_t at = next;
        UChar32 codePoint = 0;
        U8_NEXT(bytes, next, length, codePoint);
        if (codePoint < 0) { // no UTF-8
            codePoint = ut::from_cp1251(native[static_cast<std::size_t>(at)]);
            next = at + 1;
        }
        text.append(codePoint);
    }
    return text;
}

std::u16string unitsOf(const icu::UnicodeString& text)
{
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

} // namespace

std::string folderTitle(const std::string& folder)
{
    std::error_code ignored;
    std::string name = fs::path(folder).filename().string();
    if (name.empty() || name == "." || name == "..")
        name = fs::canonical(folder, ignored).filename().string();
    return ut::to_cp1251(unitsOf(decoded(name)));
}

std::pair<std::u16string, std::string> folderSortingKey(const std::string& name)
{
    return {unitsOf(decoded(name).toLower(icu::Locale::getRoot())), name};
}

std::vector<std::string> subFolders(const std::string& folder)
{
    std::vector<std::pair<std::u16string, std::string>> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code unknown;
        if (!name.starts_with('.') && entry->is_directory(unknown))
            found.push_back(folderSortingKey(name));
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string> names;
    names.reserve(found.size());
    for (auto& [key, name] : found)
        names.push_back(std::move(name));
    return names;
}

} // namespace Kedrin::ModTool
