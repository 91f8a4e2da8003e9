#pragma once

#include "verse_number.h"

#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

/// A verse reference in a key or field.
struct JsonReference
{
    std::string_view book; ///< a number or a name
    unsigned int chapter;
    VerseNumber verse;
};

/// Reads "Gen 1:1", "1:1:1", "GEN.1.1", "Gen 1,1", "1 Cor 1:1-2", "Jude 5", and 1001001, 66022021 or 066022021.
std::optional<JsonReference> parseJsonReference(std::string_view text);

/// Whether a key seems to name a verse, readable or not: "Ps 3:title", "43", but not "iso639".
bool isLikeReference(std::string_view key);

/// A number from 0 to 65534, perhaps with ".0"; nullopt for any other text.
std::optional<unsigned int> parseJsonNumber(std::string_view text);

/// What parseVerseNumber() reads, or a whole number with ".0".
std::optional<VerseNumber> parseJsonVerse(std::string_view text);

/// The text without blanks at its ends; "3" of "3.0".
std::string_view wholeNumber(std::string_view text);

} // namespace Kedrin::ModTool
