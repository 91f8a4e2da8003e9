#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// A verse number or range as written in a source.
struct VerseNumber
{
    unsigned int first;
    unsigned int last; ///< equals `first` for a single verse
    bool isPart;       ///< 1a, or with a Cyrillic letter
};

/// Reads "3", "3a", "3-5", "3,5", with spaces around it and points and commas after it. Zero is allowed.
/// @returns nothing if the text is none of these, a number is larger than maxSourceNumber, or the last is
///          smaller than the first
std::optional<VerseNumber> parseVerseNumber(std::string_view text);

/// How many bytes at the start of a word are a number: all of it, or its longest prefix that is a number and
/// ends with a digit ("3And", "3аз"); 0 for none.
std::size_t verseNumberBytes(std::string_view word);

} // namespace Kedrin::ModTool
