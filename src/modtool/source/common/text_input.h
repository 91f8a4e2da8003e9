#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The file name that stands for standard input.
inline constexpr const char* standardInput = "-";

/// A source file as text: UTF-8, without a byte order mark; in a file without LF each CR becomes one. The encoding is the first of these that applies:
///  1. `encoding`, when not empty: any name that the Unicode library knows ("windows-1251", "UTF-16LE");
///  2. a byte order mark: UTF-8 or UTF-16;
///  3. the XML declaration, or USFM's line \ide;
///  4. UTF-8.
/// @param recognised  nullptr, or takes the name of an encoding that the content alone says (see isWindows1251()); "" for
///                    none
/// @throws CBuildError
///     "%s: cannot be opened", "%s: is larger than 64 MiB", "%s: cannot be read"
///     "%s: the encoding \"%s\" is not known", "%s:%u: not valid %s", with line and encoding
std::string readText(const std::string& fileName, const std::string& encoding,
                     std::string* recognised = nullptr);

/// The same for content in memory.
std::string decodedText(std::string content, const std::string& fileName, const std::string& encoding,
                        std::string* recognised = nullptr);

bool isUtf8(std::string_view text);

/// Whether bytes that are not UTF-8 are Cyrillic text in Windows-1251: at least twenty of its letters; of the bytes above
/// 127 nine in ten are letters from А to я; more of these are small than capital, and half of them follow another one.
/// Bytes that other Cyrillic encodings use for capitals, and Windows-1251 for hardly any text, are fewer than one in two
/// hundred.
bool isWindows1251(std::string_view content);

} // namespace Kedrin::ModTool
