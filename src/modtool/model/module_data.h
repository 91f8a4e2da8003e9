#pragma once

#include "source_bible.h"
#include "word_index.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// One book of a module, in the module's own order.
struct ModuleBook
{
    std::string osis;
    unsigned int globalID;
    std::vector<unsigned int> versesCount; ///< [chapter]; every chapter has at least one verse
};

/// Chapter and verse, indices from 0.
struct ChapterVerse
{
    unsigned int chapter;
    unsigned int verse;

    bool operator==(const ChapterVerse&) const = default;
};

/// A verse of a module and its true position in the global numbering. Numbers from 0.
struct VersePair
{
    unsigned int localBook;
    ChapterVerse local;
    unsigned int globalBook;
    ChapterVerse global;
};

/// A record of _Diff_.txt: from `chapter` and `verse` of a book in the module's numbering to the global
/// numbering. All three count from 1, as in the file.
struct DiffRecord
{
    unsigned int book;
    unsigned int chapter;
    unsigned int verse;
    int chapterDelta;
    int verseDelta;

    bool operator==(const DiffRecord&) const = default;
};

/// Metadata of the module, in Windows-1251. Lines of at most 255 bytes.
struct ModuleInfo
{
    std::string fullTitle;
    std::string shortTitle;
    std::string abbreviatedTitle;
    std::vector<std::string> copyright;
};

/// The complete contents of a module, ready to be written; numbers are within the limits of the formats.
struct ModuleData
{
    struct Verse ///< bytes of `text`
    {
        std::uint32_t offset;
        std::uint32_t byteCount;
    };

    ModuleInfo info;
    std::vector<ModuleBook> books;
    std::vector<BookTitles> bookTitles; ///< [book], Windows-1251, lines of at most 255 bytes
    std::string text;                   ///< Windows-1251, not escaped
    std::vector<Verse> verses;          ///< [verse number]
    WordIndex words;
    std::vector<VersePair> versePairs; ///< of the verses that have a position in the global numbering
    std::vector<DiffRecord> diff;

    std::string_view verse(std::size_t verseNum) const
    {
        return std::string_view(text).substr(verses[verseNum].offset, verses[verseNum].byteCount);
    }
};

/// Calls `use(book, chapter, verse)` for each verse of the books, in the order of their verse numbers; all three
/// are indices from 0.
template <typename Use>
void forEachPosition(const std::vector<ModuleBook>& books, Use&& use)
{
    for (unsigned int book = 0; book < books.size(); ++book)
        for (unsigned int chapter = 0; chapter < books[book].versesCount.size(); ++chapter)
            for (unsigned int verse = 0; verse < books[book].versesCount[chapter]; ++verse)
                use(book, chapter, verse);
}

/// The book, and the chapter and verse, of a verse number; nothing where the books have fewer verses. All count from 0.
/// @param books  each with its `versesCount`, [chapter]
template <typename Book>
std::optional<std::pair<std::size_t, ChapterVerse>> findVerse(const std::vector<Book>& books,
                                                              unsigned int verseNum)
{
    for (std::size_t book = 0; book < books.size(); ++book)
        for (unsigned int chapter = 0; chapter < books[book].versesCount.size(); ++chapter) {
            if (verseNum < books[book].versesCount[chapter])
                return std::pair(book, ChapterVerse{chapter, verseNum});
            verseNum -= books[book].versesCount[chapter];
        }
    return std::nullopt;
}

/// "Gen 1:1", numbers from 1.
std::string positionText(std::string_view book, std::size_t chapter, std::size_t verse);

/// The same for a verse number of the module; "" if there is no such verse.
std::string positionInModule(const ModuleData& module, unsigned int verseNum);

} // namespace Kedrin::ModTool
