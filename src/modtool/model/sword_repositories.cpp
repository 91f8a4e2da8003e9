#include "sword_repositories.h"

#include "errors.h"
#include "messages.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

bool isUrl(const std::string& text)
{
    constexpr std::array<const char*, 3> schemes = {"http://", "https://", "ftp://"};
    return std::any_of(schemes.begin(), schemes.end(),
                       [&](const char* scheme) { return text.starts_with(scheme); }) &&
           std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

std::string withoutSlashes(const std::string& path) { return path.substr(0, path.find_last_not_of('/') + 1); }

} // namespace

SwordRepository repositoryNamed(const std::string& typed, const std::vector<SwordRepository>& known)
{
    constexpr std::string_view fileScheme = "file://";
    for (const SwordRepository& repository : known)
        if (repository.name == typed)
            return repository;
    if (isUrl(typed))
        return {typed, withoutSlashes(typed)};
    const std::string folder = typed.starts_with(fileScheme) ? typed.substr(fileScheme.size()) : typed;
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored))
        throw CNotFound(
            message("\"%s\" is not the name of a known repository, an address (http, https or ftp) or "
                    "a folder",
                    typed));
    return {typed, std::filesystem::absolute(folder).lexically_normal().string()};
}

} // namespace Kedrin::ModTool
