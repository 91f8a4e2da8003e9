#pragma once

#include <cstdint>
#include <string>

namespace Kedrin::Tolvo {

/// A source of book titles, in Windows-1251. The implementation defines the numbering of `bookID`: CTitles
/// takes a module's own numbers, CBible the global ones. Objects are never deleted through it.
class ITitles
{
public:
    virtual std::string fullTitle(unsigned int bookID) const = 0;
    virtual std::string shortTitle(unsigned int bookID) const = 0;
    virtual std::string abbreviatedTitle(unsigned int bookID) const = 0;

protected:
    ~ITitles() = default;
};

/// One verse: book, chapter and verse, each an index from 0, and the numbering that they belong to. Global
/// numbers are common to all modules; local ones are a module's own.
///
/// Comparisons use only the numbers, never the type. Functions do not throw unless documented.
class CRef
{
public:
    enum RefType
    {
        refUnknown = 0, ///< the numbering is not known
        refGlobal = 1,
        refLocal = 2,
        refNull = 3 ///< not a reference: the numbers have no meaning
    };

    CRef() = default;
    CRef(unsigned int bookID, unsigned int chapter, unsigned int verse) noexcept
        : m_bookID(bookID),
          m_chapter(chapter),
          m_verse(verse),
          m_refType(refUnknown)
    {}
    CRef(unsigned int bookID, unsigned int chapter, unsigned int verse, bool global) noexcept
        : m_bookID(bookID),
          m_chapter(chapter),
          m_verse(verse),
          m_refType(global ? refGlobal : refLocal)
    {}
    /// The numbers of `other`, as a global or local reference regardless of its type.
    CRef(const CRef& other, bool global) noexcept
        : CRef(other.m_bookID, other.m_chapter, other.m_verse, global)
    {}

    unsigned int bookID() const noexcept { return m_bookID; }
    unsigned int chapter() const noexcept { return m_chapter; }
    unsigned int verse() const noexcept { return m_verse; }

    bool isGlobal() const noexcept { return m_refType == refGlobal; }
    bool isLocal() const noexcept { return m_refType == refLocal; }
    bool isNull() const noexcept { return m_refType == refNull; }

    /// The same book and chapter with verse index 1, of unknown type. The literal 1 looks like a mistake, as
    /// verses count from 0; but together with operator== it decides which chapters CDiff shifts.
    CRef chaptersBeginning() const noexcept { return CRef(m_bookID, m_chapter, 1); }

    /// Chapter 0, verse 0 of the same book, of unknown type.
    CRef booksBeginning() const noexcept { return CRef(m_bookID, 0, 0); }

    /// Lexicographic by book, chapter, verse.
    bool operator<(const CRef& other) const noexcept
    {
        if (m_bookID != other.m_bookID)
            return m_bookID < other.m_bookID;
        if (m_chapter != other.m_chapter)
            return m_chapter < other.m_chapter;
        return m_verse < other.m_verse;
    }

    /// Compares this verse with the other's chapter, not with its verse; CDiff's lookup relies on it. So a
    /// reference need not equal itself, and a == b does not imply b == a.
    bool operator==(const CRef& other) const noexcept
    {
        return m_bookID == other.bookID() && m_chapter == other.chapter() && m_verse == other.chapter();
    }

    /// The book's abbreviation, a space, chapter, ":", verse, both counted from 1: "Бит 1:3".
    /// @param titles  a source with the same numbering as this reference; the type is not checked
    /// @throws std::out_of_range  the source has no such book; anything else ends the program
    std::string toString(const ITitles* titles) const;

private:
    std::uint32_t m_bookID = 0;
    std::uint32_t m_chapter = 0;
    std::uint32_t m_verse = 0;
    RefType m_refType = refNull;
};

/// Signed offsets to add to a reference.
class CRefDelta
{
public:
    CRefDelta(int chapterDelta, int verseDelta) noexcept : CRefDelta(0, chapterDelta, verseDelta) {}
    CRefDelta(int bookDelta, int chapterDelta, int verseDelta) noexcept
        : m_bookDelta(bookDelta),
          m_chapterDelta(chapterDelta),
          m_verseDelta(verseDelta)
    {}

    int bookDelta() const noexcept { return m_bookDelta; }
    int chapterDelta() const noexcept { return m_chapterDelta; }
    int verseDelta() const noexcept { return m_verseDelta; }

private:
    std::int32_t m_bookDelta;
    std::int32_t m_chapterDelta;
    std::int32_t m_verseDelta;
};

/// Adds field by field modulo 2^32, without carry from verse to chapter; the result is of unknown type.
CRef operator+(const CRef& ref, const CRefDelta& delta) noexcept;

} // namespace Kedrin::Tolvo
