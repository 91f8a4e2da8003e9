// The tables of versification systems against the SWORD library, from which they were made while building.

#include "global_books.h"
#include "versification.h"

#include <versificationmgr.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Kedrin::ModTool;
using Book = sword::VersificationMgr::Book;
using System = sword::VersificationMgr::System;

const System* systemOf(const std::string& name)
{
    return sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystem(name.c_str());
}

/// Null where the system lacks the book.
const Book* bookOf(const System& system, unsigned int globalID)
{
    const std::string osis(globalBooks()[globalID].osis);
    const int number = system.getBookNumberByOSISName(osis.c_str());
    return number < 1 ? nullptr : system.getBook(number - 1);
}

ModuleBook moduleBook(unsigned int globalID, std::vector<unsigned int> versesCount = {})
{
    return {std::string(globalBooks()[globalID].osis), globalID, std::move(versesCount)};
}

/// The position by the library alone; chapter and verse from 1.
std::optional<ChapterVerse> askLibrary(const System& system, const ModuleBook& book, int chapter, int verse)
{
    static const System* const kjv = systemOf("KJV");
    static const System* const synodal = systemOf("Synodal");
    const System* common = isDeuterocanonical(book.globalID) ? synodal : kjv;
    const char* osis = book.osis.c_str();
    int verses[] = {verse, verse}; // in this order, as the library compares their addresses
    if (common != &system && bookOf(system, book.globalID))
        system.translateVerse(common, &osis, &chapter, &verses[0], &verses[1]);
    const ChapterVerse global{static_cast<unsigned int>(chapter) - 1,
                              static_cast<unsigned int>(verses[0]) - 1};
    if (book.osis != osis || !isGlobalVerse(book.globalID, global.chapter, global.verse))
        return std::nullopt;
    return global;
}

std::vector<unsigned int> verseCounts(const Book& book)
{
    std::vector<unsigned int> counts;
    for (int chapter = 1; chapter <= book.getChapterMax(); ++chapter)
        counts.push_back(static_cast<unsigned int>(book.getVerseMax(chapter)));
    return counts;
}

TEST(VersificationTables, GlobalBooksHaveTheVersesOfKjvAndTheOthersThoseOfSynodal)
{
    for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID) {
        const GlobalBook& global = globalBooks()[globalID];
        const Book* book = bookOf(*systemOf(isDeuterocanonical(globalID) ? "Synodal" : "KJV"), globalID);
        ASSERT_NE(book, nullptr) << global.osis;
        EXPECT_EQ(std::vector<unsigned int>(global.verseCounts.begin(), global.verseCounts.end()),
                  verseCounts(*book))
            << global.osis;
    }
}

TEST(VersificationTables, NameTheSystemsOfTheLibrary)
{
    std::vector<std::string> names = CVersification::names();
    std::sort(names.begin(), names.end());
    std::vector<std::string> known;
    for (const auto& name : sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystems())
        known.emplace_back(name.c_str());
    std::sort(known.begin(), known.end());
    EXPECT_EQ(names, known);
}

TEST(VersificationTables, CountTheVersesOfEveryChapterAsTheLibraryDoes)
{
    for (const std::string& name : CVersification::names())
        for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID) {
            const Book* book = bookOf(*systemOf(name), globalID);
            const auto counts = book ? verseCounts(*book) : std::vector<unsigned int>{1};
            const unsigned int expected = book ? static_cast<unsigned int>(counts.size()) : 0;
            std::vector<unsigned int> longer = counts;
            EXPECT_EQ(CVersification(name).agreement({moduleBook(globalID, counts)}), expected)
                << name << ' ' << globalBooks()[globalID].osis;
            for (unsigned int count = 0; count < 256; ++count) {
                longer.resize(counts.size());
                longer.push_back(count);
                EXPECT_EQ(CVersification(name).agreement({moduleBook(globalID, longer)}), expected)
                    << name << ' ' << globalBooks()[globalID].osis << ": has more chapters";
            }
        }
}

/// Every verse of a chapter, and some that no edition has.
std::vector<int> versesToAsk(int count)
{
    std::vector<int> verses;
    for (int verse = 1; verse <= count + 30; ++verse)
        verses.push_back(verse);
    for (const int verse : {177, 200, 254, 255, 256, 257, 1000, 65535})
        verses.push_back(verse);
    return verses;
}

TEST(VersificationTables, PlaceEveryVerseWhereTheLibraryDoes)
{
    for (const std::string& name : CVersification::names()) {
        const System& system = *systemOf(name);
        const CVersification versification(name);
        for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID) {
            const ModuleBook module = moduleBook(globalID);
            const Book* book = bookOf(system, globalID);
            const int chaptersCount = book ? book->getChapterMax() : 3;
            for (int chapter = 1; chapter <= chaptersCount + 3; ++chapter)
                for (const int verse :
                     versesToAsk(book && chapter <= chaptersCount ? book->getVerseMax(chapter) : 0)) {
                    const ChapterVerse position{static_cast<unsigned int>(chapter) - 1,
                                                static_cast<unsigned int>(verse) - 1};
                    ASSERT_EQ(versification.toGlobal(module, position),
                              askLibrary(system, module, chapter, verse))
                        << name << ' ' << module.osis << ' ' << chapter << ':' << verse;
                }
        }
    }
}

} // namespace
