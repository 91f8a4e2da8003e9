#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Random texts, and writers of every format that build reads, which vary what must not matter. They are written
/// according to doc/formats without the product's code.
namespace varied_test {

/// Random numbers with a seed; the same on every machine.
class CRandom
{
public:
    explicit CRandom(unsigned int seed) : m_random(seed) {}

    /// From 0 to count - 1.
    unsigned int number(std::size_t count) { return static_cast<unsigned int>(m_random() % count); }
    bool oneIn(unsigned int count) { return number(count) == 0; }

    template <typename List>
    const auto& oneOf(const List& list)
    {
        return list[number(std::size(list))];
    }

    template <typename Item>
    void shuffle(std::vector<Item>& items)
    {
        for (std::size_t i = items.size(); i > 1; --i)
            std::swap(items[i - 1], items[number(i)]);
    }

private:
    std::mt19937 m_random;
};

/// How the formats name a book.
struct Book
{
    const char* osis;
    const char* usfm;
    const char* english;
    const char* bulgarian;
    unsigned int number; ///< in Protestant order, from 1
    unsigned int tens;   ///< in databases that number in tens
    bool hasOneChapter;
};

struct Verse
{
    const Book* book;
    unsigned int chapter;
    unsigned int verse;
    std::string text; ///< words with single blanks; begins with a letter
};

/// Verses in ascending order, of books in Protestant order.
using Text = std::vector<Verse>;

/// Some verses of some books, with gaps.
Text randomText(CRandom& random);

/// "Gen 1:1 text", a line for each verse.
std::string linesOf(const Text& text);

/// A file of a source. A source of several files is a folder.
struct File
{
    std::string name;
    std::string bytes;
};

/// @returns "Gen", "Genesis", "Битие" and the like
std::string anyNameOf(const Book& book, CRandom& random);

/// Replaces each blank by a run of these.
std::string withBlanks(const std::string& text, std::string_view blanks, CRandom& random);

/// Gives all lines another end: LF, CR LF, or CR where that is allowed.
std::string withLineEnds(const std::string& text, bool mayBeCr, CRandom& random);

/// The text in another encoding, or nothing if the encoding lacks a character.
/// @param encoding  as iconv knows it
std::string encoded(const std::string& utf8, const char* encoding);

/// UTF-8 with or without a byte order mark, or UTF-16 with one.
std::string withByteOrderMark(const std::string& utf8, CRandom& random);

/// Calls `book`, `chapter` and `verse` where each begins, and `chapterEnd` and `bookEnd` where it ends.
template <typename BeginBook, typename BeginChapter, typename OneVerse, typename EndChapter, typename EndBook>
void forEachPart(const Text& text, BeginBook&& book, BeginChapter&& chapter, OneVerse&& verse,
                 EndChapter&& chapterEnd, EndBook&& bookEnd)
{
    const Verse* last = nullptr;
    for (const Verse& one : text) {
        const bool isNewBook = last == nullptr || last->book != one.book;
        const bool isNewChapter = isNewBook || last->chapter != one.chapter;
        if (last != nullptr && isNewChapter)
            chapterEnd();
        if (last != nullptr && isNewBook)
            bookEnd();
        if (isNewBook)
            book(*one.book);
        if (isNewChapter)
            chapter(one);
        verse(one);
        last = &one;
    }
    chapterEnd();
    bookEnd();
}

} // namespace varied_test
