#pragma once

#include <cstdint>

namespace Kedrin::ModTool {

// The form of the tables that make_versification_tables prints. They are constant data: a program that holds them does
// nothing when it starts.

/// Verses `first` to `last` of a chapter whose positions in the global numbering are others.
struct NumberingRun
{
    std::uint8_t chapter; ///< from 1
    std::uint8_t first;   ///< from 1
    std::uint8_t last;
    std::uint8_t globalChapter; ///< from 1; 0: in another book
    std::int16_t shift;         ///< to be added to the verse
};

/// A book of a versification system.
struct NumberedBook
{
    std::uint8_t globalID;
    std::uint8_t chaptersCount;
    std::uint16_t runsCount;
    std::uint16_t firstChapter; ///< index into the verse counts
    std::uint16_t firstRun;     ///< index into the runs, which are sorted by chapter and verse
};

/// A versification system. Books that the global numbering lacks are not among its books.
struct NumberedSystem
{
    const char* name;
    std::uint16_t firstBook; ///< index into the books
    std::uint16_t booksCount;
};

} // namespace Kedrin::ModTool
