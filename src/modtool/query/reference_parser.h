#pragma once

#include "book_lookup.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// Verses of a book that follow each other, in a module's own numbers.
struct VerseRange
{
    unsigned int book;         ///< local, from 0
    unsigned int firstChapter; ///< from 0, as the rest
    unsigned int firstVerse;
    unsigned int lastChapter;
    unsigned int lastVerse;
    bool wholeChapters; ///< asked for by chapters, not by verses

    bool holds(const Tolvo::CRef& local) const;
};

/// Understands references as users type them and finds them in a module's own numbering.
///
///     Йоан 3:16   Jn 3:16-18   Мт 5,3   Gen 1.1   1Цар 2:3   I Цар. 2   Бит 1:1-2:3   Ps 119   Gen 1-2   Рут   Юда 5
///     Йоан 3:16,18   Йоан 3:16-18,20,4:2   Йоан 3:16; 4:2; Бит 1   Бит-Втор
///
/// A book (see CBookLookup), then nothing, a chapter, a chapter and a verse with ":", "." or "," between, or two of
/// these with a dash between. After a verse a number alone is a verse of its chapter. In a book of one chapter a single
/// number greater than 1 is a verse. A comma after a chapter and a verse begins another verse of the chapter, or, with
/// ":" or "." between its numbers, a verse of another chapter. ";" begins another reference, to the same book where it
/// names none. Two books with a dash between are these and all of the module between them.
///
/// @returns the ranges in the order in which they are typed; at least one
/// @throws CNotFound
///     "\"%s\" is not a reference"
///     "\"%s\" does not name a book (for example: %s)"; the reference with the module's first book
///     what CBookLookup throws
///     "%s has %u chapters; there is no chapter %u"; the book's label
///     "%s has %u verses; there is no verse %u"; the chapter's label
///     "\"%s\" ends before it begins"
std::vector<VerseRange> parseReferences(const std::string& references, const CModuleReader& module);

/// Whether one of the ranges holds the verse.
bool holds(const std::vector<VerseRange>& ranges, const Tolvo::CRef& local);

} // namespace Kedrin::ModTool
