#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// What a source writes for the number of a verse.
struct VerseNumber
{
    unsigned int first;
    unsigned int last; ///< equals `first` where it is one verse
    bool isPart;       ///< 1a, or with a Cyrillic letter
};

/// Reads "3", "3a", "3-5", "3,5", with blanks around and points and commas behind. Zero is a number.
/// @returns nothing where the text is none of these, a number is larger than maxSourceNumber, or the last is smaller
///     than the first
std::optional<VerseNumber> parseVerseNumber(std::string_view text);

/// How many bytes of a word are a number: all of it, or its longest beginning that is one and ends with a digit ("3And",
/// "3аз"); 0 where it begins with none.
std::size_t verseNumberBytes(std::string_view word);

} // namespace Kedrin::ModTool
