#pragma once

#include <string>

/// Text utilities that the whole system shares. Text is 8-bit Windows-1251 in zero-terminated strings; nothing
/// here knows UTF-8. None of these functions throws anything but std::bad_alloc.
namespace ut {

/// The printf-style expansion of `fmt`, of any length. Where there is none (it would have more than 2 GiB, or a wide
/// character that the locale lacks), the text says so: "ut::format(): cannot expand \"%s\": " and the system's reason.
[[gnu::format(printf, 1, 2)]] std::string format(const char* fmt, ...);

/// `s` without one trailing line ending: CR LF, LF or CR. Of several line endings only the last goes; blanks
/// and tabs stay. chomp("") is "".
std::string chomp(const char* s);

/// The upper-case form of one character. Only a..z and the bytes 0xE0..0xFF (а..я) fold; ё and the other
/// letters below 0xC0 keep their case, and every module's word list is sorted by that rule.
char cyr_chrupcase(char _ch);

/// -1, 0 or 1: compares the folded characters as unsigned bytes, so Cyrillic comes after Latin.
int cyr_chricmp(char ch1, char ch2);

/// -1, 0 or 1: lexicographic order by cyr_chricmp; a proper prefix comes first.
int cyr_stricmp(const char* s1, const char* s2);

/// The first place in `haystack` where `needle` stands without regard to case, or a null pointer. An empty
/// needle stands at the start of any haystack. The result points into `haystack`.
const char* cyr_stristr(const char* haystack, const char* needle);

/// The directory of the program file, in native bytes, without a trailing slash. Written once at start-up,
/// before anything reads it; empty until then.
extern std::string g_applicationDirPath;

/// Sets g_applicationDirPath to all that stands before the last slash of `applicationExePath`, or to "" when
/// there is no slash: "/opt/app/bin/prog" gives "/opt/app/bin", "/prog" and "prog" give "".
void extract_application_dirPath(const char* applicationExePath);

/// Sets g_applicationDirPath to `dirPath`, unchanged.
void set_application_dirPath(const char* dirPath);

/// A copy of g_applicationDirPath.
std::string get_application_dirPath();

} // namespace ut
