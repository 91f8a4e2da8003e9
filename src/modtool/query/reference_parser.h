#pragma once

#include "book_lookup.h"

#include <string>

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

/// Understands a reference as users type it and finds it in a module's own numbering.
///
///     Йоан 3:16   Jn 3:16-18   Мт 5,3   Gen 1.1   1Цар 2:3   I Цар. 2   Бит 1:1-2:3   Ps 119   Gen 1-2   Рут   Юда 5
///
/// A book (see CBookLookup), then nothing, a chapter, a chapter and a verse with ":", "." or "," between, or two of
/// these with a dash between. After a verse a number alone is a verse of its chapter. In a book of one chapter a single
/// number greater than 1 is a verse.
///
/// @throws CNotFound
///     "\"%s\" is not a reference"
///     what CBookLookup throws
///     "%s has %u chapters, there is no chapter %u"; the book's label
///     "%s has %u verses, there is no verse %u"; the chapter's label
///     "\"%s\" ends before it begins"
VerseRange parseReference(const std::string& reference, const CModuleReader& module);

} // namespace Kedrin::ModTool
