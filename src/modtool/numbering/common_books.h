#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A book of the common numbering. The titles hold only characters of Windows-1251.
struct CommonBook
{
    std::string_view osis;                     ///< OSIS id: "Gen"
    std::span<const std::uint8_t> verseCounts; ///< [chapter]: verses in that chapter
    std::u16string_view fullTitle;
    std::u16string_view shortTitle;
    std::u16string_view abbreviatedTitle;
};

inline constexpr unsigned int commonBooksCount = 77;

/// The books of the common numbering: 39 protocanonical books of the Old Testament, 11 deuterocanonical ones, 27 of
/// the New Testament with the general letters before Paul's. The place in the table is the global book number.
const std::array<CommonBook, commonBooksCount>& commonBooks();

/// The global number of an OSIS book id, spelt exactly; nothing for a book that the common numbering lacks.
std::optional<unsigned int> globalIDOf(std::string_view osis);

/// Whether a book of the common numbering has such a verse; chapter and verse are indices from 0.
bool isGlobalVerse(unsigned int globalID, unsigned int chapter, unsigned int verse);

/// Whether the book is one of the eleven that are counted by the Synodal edition, not by the King James Version.
bool isDeuterocanonical(unsigned int globalID);

/// The content of the modules directory's BibleStructure.txt: a line a book, its chapters and their verses.
std::string commonStructureFile();

} // namespace Kedrin::ModTool
