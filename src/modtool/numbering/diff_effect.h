#pragma once

#include "global_books.h"
#include "module_data.h"

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace Kedrin::ModTool {

/// The only chapter index that the engine shifts: the second chapter of a book.
inline constexpr unsigned int shiftedChapter = 1;

/// Offsets of chapter and verse.
struct Shift
{
    int chapters = 0;
    int verses = 0;

    bool operator==(const Shift&) const = default;
    auto operator<=>(const Shift&) const = default; // NOLINT(modernize-use-nullptr)
};

/// The opposite offsets, modulo 2^32.
Shift reversed(Shift shift);

/// What the engine makes of a module's differences. It shifts only the second chapter of a book, all its
/// verses alike, modulo 2^32. Which shift it takes depends on the book number, which is a global one on the
/// way to the global numbering and a local one on the way back.
class CNumberingShifts
{
public:
    /// The shifts in force for one book number.
    struct Book
    {
        Shift toGlobal; ///< of the second chapter of the global book
        Shift toLocal;  ///< of the second chapter of the local book
    };

    /// @param book  below globalBooksCount, global or local
    Book& operator[](unsigned int book) { return m_books[book]; }
    const Book& operator[](unsigned int book) const { return m_books[book]; }

    /// As Tolvo::CDiff::toGlobal() and toLocal(), for a book below globalBooksCount.
    ChapterVerse toGlobal(unsigned int globalBook, ChapterVerse local) const;
    ChapterVerse toLocal(unsigned int localBook, ChapterVerse global) const;

    /// Whether a verse maps to its position in the global numbering and back.
    bool mapsBothWays(const VersePair& pair) const;

    /// How many verses map correctly both ways.
    unsigned int roundTripCount(const std::vector<VersePair>& pairs) const;

private:
    std::array<Book, globalBooksCount> m_books;
};

/// Which records of _Diff_.txt are in force: of each book the one with the lowest verse in the second
/// chapter, of equal ones the first, in each direction. Memory does not grow with the records; those of books
/// that no module has are ignored.
class CDiffEffect
{
public:
    CDiffEffect() = default;
    explicit CDiffEffect(const std::vector<DiffRecord>& records);

    void add(const DiffRecord& record);

    CNumberingShifts shifts() const;

    /// The records, by their numbers from 0, without which a module would be numbered differently.
    /// @param globalIDs  of the module's books, in its order; any numbers
    std::set<std::uint64_t> effectiveRecords(const std::vector<unsigned int>& globalIDs) const;

private:
    struct Entry
    {
        unsigned int verse; ///< where the record begins
        Shift shift;
        std::uint64_t record;
        bool hidesOther = false; ///< whether another record would shift the chapter without this one
    };
    using Table = std::array<std::optional<Entry>, globalBooksCount>; ///< [book]

    void insert(Table& table, unsigned int book, ChapterVerse begin, Shift shift) const;

    Table m_localToGlobal;
    Table m_globalToLocal;
    std::uint64_t m_recordsCount = 0;
};

} // namespace Kedrin::ModTool
