#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// A book of the global numbering. The titles contain only characters of Windows-1251.
struct GlobalBook
{
    std::string_view osis;                     ///< OSIS id: "Gen"
    std::span<const std::uint8_t> verseCounts; ///< [chapter]: verses in that chapter
    std::u16string_view fullTitle;
    std::u16string_view shortTitle;
    std::u16string_view abbreviatedTitle;
};

inline constexpr unsigned int globalBooksCount = 77;

/// The books of the global numbering: 39 protocanonical books of the Old Testament, 11 deuterocanonical ones,
/// 27 of the New Testament with the general letters before Paul's. The index in the table is the global book
/// number.
const std::array<GlobalBook, globalBooksCount>& globalBooks();

/// The global number of an OSIS book id, case-sensitive; nothing for a book that the global numbering lacks.
std::optional<unsigned int> globalIDOf(std::string_view osis);

/// Whether a book of the global numbering has such a verse; chapter and verse are indices from 0.
bool isGlobalVerse(unsigned int globalID, unsigned int chapter, unsigned int verse);

/// Whether the book is one of the eleven with verse counts of the Synodal edition instead of the King James
/// Version.
bool isDeuterocanonical(unsigned int globalID);

/// The content of the modules directory's BibleStructure.txt: one line per book: its chapters and their
/// verses.
std::string globalStructureFile();

} // namespace Kedrin::ModTool
