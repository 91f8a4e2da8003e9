#include "language.h"

#include <libintl.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

constexpr const char* anyUtf8Locale = "C.UTF-8";

std::string valueOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value ? value : "";
}

/// The locale that the environment names for messages; "" for none.
std::string namedLocale()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (std::string value = valueOf(variable); !value.empty())
            return value;
    return "";
}

std::string catalogueFolder()
{
    std::error_code ignored;
    const std::filesystem::path program =
        std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const char* path : {"locale", "../share/locale", "../../share/locale"})
        if (std::filesystem::exists(program / path / "bg/LC_MESSAGES/kedrin-module.mo", ignored))
            return program / path;
    return "";
}

} // namespace

void chooseLanguage()
{
    const std::string locale = namedLocale();
    if (locale.empty() || locale == "C" || locale == "POSIX")
        return;
    const std::string folder = catalogueFolder();
    if (folder.empty())
        return;
    std::setlocale(LC_CTYPE, anyUtf8Locale); // for the system's own messages
    const bool isInstalled = std::setlocale(LC_MESSAGES, "");
    if (!isInstalled && std::setlocale(LC_MESSAGES, anyUtf8Locale) && valueOf("LANGUAGE").empty())
        ::setenv("LANGUAGE", locale.c_str(), 1);
    ::bindtextdomain(messageDomain, folder.c_str());
    ::bind_textdomain_codeset(messageDomain, "UTF-8");
}

void forceEnglish() { std::setlocale(LC_MESSAGES, "C"); }

} // namespace Kedrin::ModTool
