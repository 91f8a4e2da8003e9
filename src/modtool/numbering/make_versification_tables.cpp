// Run while building: asks the SWORD library for its versification systems and prints them as tables of C++
// (versification_tables.h), so that a text is numbered the same where that library is not installed. A position is
// asked for up to one chapter behind the end of a book and to the verse `lastAsked` of each chapter: behind them none has
// a position in the global numbering.

#include "global_books.h"
#include "versification_tables.h"

#include <versificationmgr.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace Kedrin::ModTool;
using System = sword::VersificationMgr::System;

constexpr int lastAsked = 255;

/// KJV first, the others sorted.
std::vector<const System*> systems()
{
    auto& manager = *sword::VersificationMgr::getSystemVersificationMgr();
    std::vector<std::string> names;
    for (const auto& name : manager.getVersificationSystems())
        names.emplace_back(name.c_str());
    std::sort(names.begin(), names.end());
    std::stable_partition(names.begin(), names.end(), [](const std::string& name) { return name == "KJV"; });
    std::vector<const System*> all(names.size());
    std::transform(names.begin(), names.end(), all.begin(),
                   [&](const std::string& name) { return manager.getVersificationSystem(name.c_str()); });
    return all;
}

class CTables
{
public:
    void add(const System& system)
    {
        NumberedSystem row{system.getName(), static_cast<std::uint16_t>(m_books.size()), 0};
        for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID) {
            const std::string osis(globalBooks()[globalID].osis);
            const int number = system.getBookNumberByOSISName(osis.c_str()); // from 1, unlike getBook's
            if (number < 1)
                continue;
            addBook(system, *system.getBook(number - 1), globalID);
            ++row.booksCount;
        }
        m_systems.push_back(row);
    }

    void print() const
    {
        std::cout << "constexpr std::uint8_t verseCounts[] = {\n";
        for (const std::uint8_t count : m_verseCounts)
            std::cout << unsigned(count) << ",\n";
        std::cout << "};\nconstexpr NumberingRun runs[] = {\n";
        for (const NumberingRun& run : m_runs)
            std::cout << '{' << unsigned(run.chapter) << ", " << unsigned(run.first) << ", "
                      << unsigned(run.last) << ", " << unsigned(run.globalChapter) << ", " << run.shift
                      << "},\n";
        std::cout << "};\nconstexpr NumberedBook numberedBooks[] = {\n";
        for (const NumberedBook& book : m_books)
            std::cout << '{' << unsigned(book.globalID) << ", " << unsigned(book.chaptersCount) << ", "
                      << book.runsCount << ", " << book.firstChapter << ", " << book.firstRun << "},\n";
        std::cout << "};\nconstexpr NumberedSystem systems[] = {\n";
        for (const NumberedSystem& system : m_systems)
            std::cout << "{\"" << system.name << "\", " << system.firstBook << ", " << system.booksCount
                      << "},\n";
        std::cout << "};\n";
    }

private:
    void addBook(const System& system, const sword::VersificationMgr::Book& book, unsigned int globalID)
    {
        std::vector<std::uint8_t> counts;
        std::vector<NumberingRun> runs;
        for (int chapter = 1; chapter <= book.getChapterMax() + 1; ++chapter) {
            if (chapter <= book.getChapterMax())
                counts.push_back(static_cast<std::uint8_t>(book.getVerseMax(chapter)));
            addRuns(system, globalID, chapter, runs);
        }
        m_books.push_back({static_cast<std::uint8_t>(globalID), static_cast<std::uint8_t>(counts.size()),
                           static_cast<std::uint16_t>(runs.size()),
                           placed(counts, m_verseCounts, m_placesOfCounts),
                           placed(runs, m_runs, m_placesOfRuns)});
    }

    static void addRuns(const System& system, unsigned int globalID, int chapter,
                        std::vector<NumberingRun>& runs)
    {
        static const System* const kjv = named("KJV");
        static const System* const synodal = named("Synodal");
        const System* common = isDeuterocanonical(globalID) ? synodal : kjv;
        if (common == &system)
            return;
        const std::string osis(globalBooks()[globalID].osis);
        NumberingRun last{static_cast<std::uint8_t>(chapter), 1, 0, static_cast<std::uint8_t>(chapter), 0};
        for (int verse = 1; verse <= lastAsked; ++verse) {
            const char* toBook = osis.c_str();
            int toChapter = chapter;
            int verses[] = {verse, verse}; // in this order, as the library compares their addresses
            system.translateVerse(common, &toBook, &toChapter, &verses[0], &verses[1]);
            const int toVerse = verses[0];
            NumberingRun next = last;
            next.globalChapter = osis == toBook ? static_cast<std::uint8_t>(toChapter) : std::uint8_t(0);
            next.shift = osis == toBook ? static_cast<std::int16_t>(toVerse - verse) : std::int16_t(0);
            if (next.globalChapter != last.globalChapter || next.shift != last.shift) {
                addRun(last, runs);
                last = next;
                last.first = static_cast<std::uint8_t>(verse);
            }
            last.last = static_cast<std::uint8_t>(verse);
        }
        addRun(last, runs);
    }

    static void addRun(const NumberingRun& run, std::vector<NumberingRun>& runs)
    {
        if (run.last != 0 && (run.globalChapter != run.chapter || run.shift != 0))
            runs.push_back(run);
    }

    static const System* named(const char* name)
    {
        return sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystem(name);
    }

    /// Where the rows stand in the table. Many books are the same in several systems, and stand there once.
    template <typename Row>
    static std::uint16_t placed(const std::vector<Row>& rows, std::vector<Row>& table,
                                std::map<std::string, std::uint16_t>& places)
    {
        const std::string key(reinterpret_cast<const char*>(rows.data()), rows.size() * sizeof(Row));
        const auto [place, isNew] = places.emplace(key, static_cast<std::uint16_t>(table.size()));
        if (isNew)
            table.insert(table.end(), rows.begin(), rows.end());
        return place->second;
    }

    std::vector<std::uint8_t> m_verseCounts;
    std::vector<NumberingRun> m_runs;
    std::vector<NumberedBook> m_books;
    std::vector<NumberedSystem> m_systems;
    std::map<std::string, std::uint16_t> m_placesOfCounts;
    std::map<std::string, std::uint16_t> m_placesOfRuns;
};

} // namespace

int main()
{
    CTables tables;
    for (const System* system : systems())
        tables.add(*system);
    tables.print();
    return std::cout.flush() ? 0 : 1;
}
