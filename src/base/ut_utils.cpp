#include "ut_utils.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace ut {

std::string g_applicationDirPath;

std::string format(const char* fmt, ...)
{
    va_list measured;
    va_list printed;
    va_start(measured, fmt);
    va_copy(printed, measured);
    const int length = std::vsnprintf(nullptr, 0, fmt, measured);
    va_end(measured);

    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (!text.empty())
        std::vsnprintf(text.data(), text.size() + 1, fmt, printed);
    else if (length < 0)
        text = std::string("ut::format(): cannot expand \"") + fmt + "\": " + std::strerror(errno);
    va_end(printed);
    return text;
}

std::string chomp(const char* s)
{
    std::string_view line(s);
    if (line.ends_with("\r\n"))
        line.remove_suffix(2);
    else if (line.ends_with('\r') || line.ends_with('\n'))
        line.remove_suffix(1);
    return std::string(line);
}

char cyr_chrupcase(char _ch)
{
    const auto byte = static_cast<unsigned char>(_ch);
    const bool folds = (byte >= 0x61 && byte <= 0x7A) || byte >= 0xE0;
    return static_cast<char>(folds ? byte - 0x20 : byte);
}

int cyr_chricmp(char ch1, char ch2)
{
    const auto upper1 = static_cast<unsigned char>(cyr_chrupcase(ch1));
    const auto upper2 = static_cast<unsigned char>(cyr_chrupcase(ch2));
    return (upper1 > upper2) - (upper1 < upper2);
}

int cyr_stricmp(const char* s1, const char* s2)
{
    while (*s1 != '\0' && cyr_chricmp(*s1, *s2) == 0) {
        ++s1;
        ++s2;
    }
    return cyr_chricmp(*s1, *s2); // the terminating zero sorts before every other byte
}

const char* cyr_stristr(const char* haystack, const char* needle)
{
    for (;; ++haystack) {
        std::size_t i = 0;
        while (needle[i] != '\0' && haystack[i] != '\0' && cyr_chricmp(haystack[i], needle[i]) == 0)
            ++i;
        if (needle[i] == '\0')
            return haystack;
        if (haystack[i] == '\0')
            return nullptr; // no later position can match: the rest is shorter still
    }
}

void extract_application_dirPath(const char* applicationExePath)
{
    const char* lastSlash = std::strrchr(applicationExePath, '/');
    if (lastSlash == nullptr)
        g_applicationDirPath.clear();
    else
        g_applicationDirPath.assign(applicationExePath, lastSlash);
}

void set_application_dirPath(const char* dirPath) { g_applicationDirPath = dirPath; }

std::string get_application_dirPath() { return g_applicationDirPath; }

} // namespace ut
