#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A source file as text: UTF-8, without a byte order mark. Which encoding the file has is told by the first of
///  1. `encoding`, when not empty: any name that the Unicode library knows ("windows-1251", "UTF-16LE");
///  2. a byte order mark: UTF-8 or UTF-16;
///  3. the XML declaration, or USFM's line \ide;
///  4. UTF-8.
/// @throws CBuildError
///     "%s: cannot be opened", "%s: is longer than 64 MiB", "%s: cannot be read"
///     "%s: the encoding \"%s\" is not known", "%s:%u: not valid %s", with line and encoding
std::string readText(const std::string& fileName, const std::string& encoding);

/// The same for content that is in memory.
std::string decodedText(std::string content, const std::string& fileName, const std::string& encoding);

} // namespace Kedrin::ModTool
