#pragma once

#include "tolvo_ref.h"

#include <vector>

namespace Kedrin::Tolvo {

/// How many chapters each book has and how many verses each chapter has (doc/formats/bible-structure.md), and
/// so the consecutive number of every verse. Used both for a module's own numbering and for the global one:
/// no operation looks at the type of a reference. Books, chapters, verses and verse numbers count from 0.
///
/// The messages say "CBibleSructure", and ValidateChapter says "ValidateChapterID": callers rely on these
/// texts.
class CBibleStructure
{
public:
    /// Reads exactly `booksCount` books; what follows them is ignored (CBibleModules::ValidateBible refuses a
    /// further complete book).
    /// @throws std::ios_base::failure
    ///     "CBibleSructure::CBibleSructure(): error opening file %s"; "...: file %s is longer than 64 MiB"
    ///     "CBibleSructure::CBibleSructure(): error reading file %s": fewer numbers than the books need, a
    ///     token that is not an unsigned number, or more verses than fit into 32 bits
    CBibleStructure(const char* fileName, unsigned int booksCount);
    CBibleStructure(const CBibleStructure&) = delete;
    CBibleStructure& operator=(const CBibleStructure&) = delete;

    unsigned int booksCount() const { return static_cast<unsigned int>(m_verses.size()); }
    /// @throws std::out_of_range  as ValidateBookID
    unsigned int chaptersCount(unsigned int bookID) const;
    /// @throws std::out_of_range  as ValidateChapter
    unsigned int versesCount(unsigned int bookID, unsigned int chapter) const;
    unsigned int totalVersesCount() const { return m_totalVerseCount; }

    /// The verse number of a reference. Constant time.
    /// @throws std::out_of_range  as ValidateRef
    unsigned int toNum(const CRef& ref) const;

    /// The reference of a verse number, of unknown type. Two binary searches. If several books or chapters
    /// begin at `num`, because all but the last of them are empty, the result is in the first of them, which
    /// ValidateRef rejects; if the number is beyond them, in the last.
    /// @throws std::out_of_range  as ValidateNum
    CRef toRef(unsigned int num) const;

    /// How many verses a chapter has from this one on; 0 if there is no such verse.
    unsigned int versesFrom(const CRef& ref) const
    {
        if (ref.bookID() >= m_verses.size() || ref.chapter() >= m_verses[ref.bookID()].size())
            return 0;
        const unsigned int versesCount = m_verses[ref.bookID()][ref.chapter()];
        return ref.verse() < versesCount ? versesCount - ref.verse() : 0;
    }

    /// @throws std::out_of_range  "CBibleSructure::ValidateBookID(): bookID out of range"
    void ValidateBookID(unsigned int bookID) const;
    /// Validates the book first.
    /// @throws std::out_of_range  "CBibleSructure::ValidateChapterID(): chapter out of range"
    void ValidateChapter(unsigned int bookID, unsigned int chapter) const;
    /// Validates book and chapter first.
    /// @throws std::out_of_range  "CBibleSructure::ValidateRef(): verse out of range"
    void ValidateRef(const CRef& ref) const;
    /// @throws std::out_of_range  "CBibleSructure::ValidateNum(): verse number out of range"
    void ValidateNum(unsigned int num) const;

    /// Fills the start tables and the total from the verse counts; already called by the constructor.
    /// @throws std::out_of_range  there are more verses than fit into 32 bits
    void CalcStartNums();

private:
    friend class CBible;

    void readBooks(const char* fileName, unsigned int booksCount);

    std::vector<std::vector<unsigned int>> m_verses; ///< m_verses[book][chapter]: verses in that chapter
    unsigned int m_totalVerseCount = 0;
    std::vector<std::vector<unsigned int>> m_startVerseNums; ///< [book][chapter]: number of its first verse
    std::vector<unsigned int> m_bookStartVerseNums;          ///< [book]: number of its first verse
    bool m_furtherBook = false;                              ///< the file continues with a complete book
};

} // namespace Kedrin::Tolvo
