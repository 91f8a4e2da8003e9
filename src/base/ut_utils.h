#pragma once

#include <string>
#include <string_view>

/// Text utilities shared by all programs. Text is 8-bit Windows-1251 in zero-terminated strings; nothing here
/// handles UTF-8. These functions throw only std::bad_alloc.
namespace ut {

/// The printf-style expansion of `fmt`, of any length. If the expansion fails (it is longer than 2 GiB, or a
/// wide character is missing from the locale), the result is "ut::format(): cannot expand \"%s\": " and the
/// system's reason.
[[gnu::format(printf, 1, 2)]] std::string format(const char* fmt, ...);

/// `s` without one trailing line ending: CR LF, LF or CR. Of several line endings only the last is removed;
/// spaces and tabs stay. chomp("") is "".
std::string chomp(const char* s);

/// The upper-case form of one character. Only a..z and the bytes 0xE0..0xFF (а..я) fold; ё and the other
/// letters below 0xC0 keep their case. Every module's word list is sorted by this rule.
char cyr_chrupcase(char _ch);

/// -1, 0 or 1: compares the folded characters as unsigned bytes, so Cyrillic comes after Latin.
int cyr_chricmp(char ch1, char ch2);

/// -1, 0 or 1: lexicographic order by cyr_chricmp; a proper prefix comes first.
int cyr_stricmp(const char* s1, const char* s2);

/// The first occurrence of `needle` in `haystack`, ignoring case, or a null pointer. An empty needle is found
/// at the start of any haystack. The result points into `haystack`.
const char* cyr_stristr(const char* haystack, const char* needle);

/// The directory of the executable, in native bytes, without a trailing slash. Set once at start-up, before
/// anything reads it; empty until then.
extern std::string g_applicationDirPath;

/// Sets g_applicationDirPath to the part of `applicationExePath` before its last slash, or to "" if it has no
/// slash: "/opt/app/bin/prog" gives "/opt/app/bin", "/prog" and "prog" give "".
void extract_application_dirPath(const char* applicationExePath);

/// Sets g_applicationDirPath to `dirPath`, unchanged.
void set_application_dirPath(const char* dirPath);

/// A copy of g_applicationDirPath.
std::string get_application_dirPath();

} // namespace ut
