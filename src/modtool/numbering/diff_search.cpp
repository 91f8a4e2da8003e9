#include "diff_search.h"

#include <algorithm>
#include <map>
#include <set>

namespace Kedrin::ModTool {

namespace {

Shift between(ChapterVerse from, ChapterVerse to)
{
    return {static_cast<int>(to.chapter) - static_cast<int>(from.chapter),
            static_cast<int>(to.verse) - static_cast<int>(from.verse)};
}

class CShiftSearch
{
public:
    explicit CShiftSearch(const std::vector<VersePair>& pairs) : m_pairs(pairs)
    {
        for (const VersePair& pair : pairs) {
            m_localBooks[pair.globalBook] = pair.localBook;
            if (pair.local.chapter == shiftedChapter)
                m_toGlobal[pair.globalBook].insert(between(pair.local, pair.global));
            if (pair.global.chapter == shiftedChapter)
                m_toLocal[pair.localBook].insert(between(pair.global, pair.local));
            if (pair.local.chapter == shiftedChapter || pair.global.chapter == shiftedChapter)
                m_affected.push_back(&pair);
        }
    }

    unsigned int roundTrips() const { return m_shifts.roundTripCount(m_pairs); }

    /// One round over all books; whether anything was gained.
    bool improve()
    {
        bool gained = false;
        for (const auto& [globalBook, localBook] : m_localBooks)
            gained = improveBook(globalBook, localBook) || gained;
        return gained;
    }

    /// One round over all numbers.
    void simplify()
    {
        for (unsigned int book = 0; book < globalBooksCount; ++book)
            simplify(book);
    }

    std::vector<DiffRecord> records() const
    {
        std::vector<DiffRecord> all;
        for (unsigned int book = 0; book < globalBooksCount; ++book) {
            const auto records = recordsOf(book, m_shifts[book]);
            all.insert(all.end(), records->begin(), records->end());
        }
        return all;
    }

private:
    using BookShifts = CNumberingShifts::Book;

    bool canBeWritten(unsigned int book) const { return recordsOf(book, m_shifts[book]).has_value(); }

    /// A number that stands for no second chapter on one of the ways may be shifted on it as the other way needs: one
    /// record says both.
    std::optional<std::vector<DiffRecord>> recordsOf(unsigned int book, BookShifts shifts) const
    {
        if (!m_toGlobal.contains(book) && shifts.toLocal.chapters == 0)
            shifts.toGlobal = reversed(shifts.toLocal);
        if (!m_toLocal.contains(book) && shifts.toGlobal.chapters == 0)
            shifts.toLocal = reversed(shifts.toGlobal);
        return recordsFor(book, shifts.toGlobal, shifts.toLocal);
    }

    /// Round trips of the verses that a shift can move.
    std::ptrdiff_t affectedRoundTrips() const
    {
        return std::count_if(m_affected.begin(), m_affected.end(),
                             [&](const VersePair* pair) { return m_shifts.mapsBothWays(*pair); });
    }

    /// Takes fewer records where they keep as many verses.
    void simplify(unsigned int book)
    {
        const std::ptrdiff_t before = affectedRoundTrips();
        const BookShifts shifts = m_shifts[book];
        BookShifts best = shifts;
        std::size_t bestSize = recordsOf(book, shifts)->size();
        for (const BookShifts& simple :
             {BookShifts(), BookShifts{shifts.toGlobal, {}}, BookShifts{{}, shifts.toLocal},
              BookShifts{reversed(shifts.toLocal), shifts.toLocal},
              BookShifts{shifts.toGlobal, reversed(shifts.toGlobal)}}) {
            const auto records = recordsOf(book, simple);
            m_shifts[book] = simple;
            if (records && records->size() < bestSize && affectedRoundTrips() >= before) {
                best = simple;
                bestSize = records->size();
            }
        }
        m_shifts[book] = best;
    }

    /// Chooses both shifts of one book together, for a verse is kept only when both are right. They belong to two
    /// numbers, and each number's other shift to another book.
    bool improveBook(unsigned int globalBook, unsigned int localBook)
    {
        auto best = m_shifts;
        auto bestCount = affectedRoundTrips();
        const auto before = bestCount;
        for (const Shift toGlobal : candidates(m_toGlobal, globalBook))
            for (const Shift toLocal : candidates(m_toLocal, localBook)) {
                m_shifts[globalBook].toGlobal = toGlobal;
                m_shifts[localBook].toLocal = toLocal;
                if (!canBeWritten(globalBook) || !canBeWritten(localBook))
                    continue;
                if (const auto roundTrips = affectedRoundTrips(); roundTrips > bestCount) {
                    bestCount = roundTrips;
                    best = m_shifts;
                }
            }
        m_shifts = best;
        return bestCount > before;
    }

    using Candidates = std::map<unsigned int, std::set<Shift>>;
    static std::set<Shift> candidates(const Candidates& all, unsigned int book)
    {
        const auto known = all.find(book);
        std::set<Shift> shifts = known == all.end() ? std::set<Shift>() : known->second;
        shifts.insert(Shift());
        return shifts;
    }

    const std::vector<VersePair>& m_pairs;
    std::map<unsigned int, unsigned int> m_localBooks; ///< by global book number
    std::vector<const VersePair*> m_affected;          ///< those that a shift can move
    Candidates m_toGlobal;                             ///< by global book number
    Candidates m_toLocal;                              ///< by local book number
    CNumberingShifts m_shifts;
};

DiffRecord record(unsigned int book, int chapterIndex, int verseIndex, Shift toGlobal)
{
    return {book + 1, static_cast<unsigned int>(chapterIndex + 1), static_cast<unsigned int>(verseIndex + 1),
            toGlobal.chapters, toGlobal.verses};
}

constexpr int second = static_cast<int>(shiftedChapter);

/// A record whose own chapter is shifted, with the least verse that stays in range.
DiffRecord awayRecord(unsigned int book, Shift toGlobal)
{
    return record(book, second, std::max(0, -toGlobal.verses), toGlobal);
}

/// A record of another chapter that leads into the second one, so that only the way back is shifted.
DiffRecord backRecord(unsigned int book, Shift toLocal)
{
    return record(book, second + toLocal.chapters, std::max(0, toLocal.verses),
                  {-toLocal.chapters, -toLocal.verses});
}

/// Both ways stay in the second chapter, so each record stands in both tables; of the entries of a table the one
/// with the lower verse holds, of equal ones the first in the file.
std::optional<std::vector<DiffRecord>> recordsInChapter(unsigned int book, int toGlobal, int toLocal)
{
    const int away = toGlobal;
    const int back = -toLocal; // as a record says it
    if (away == back)
        return std::vector{awayRecord(book, {0, away})};
    const int verse = std::max({0, -away, -back});
    if (away > back)
        return std::vector{record(book, second, verse, {0, away}), record(book, second, verse, {0, back})};
    if (away < 0) // its entry for the way back lies below verse 0, which wraps to the end of the table
        return std::vector{record(book, second, 0, {0, away}),
                           record(book, second, std::max(1, -back), {0, back})};
    return std::nullopt;
}

} // namespace

std::optional<std::vector<DiffRecord>> recordsFor(unsigned int book, Shift toGlobal, Shift toLocal)
{
    if (toGlobal == Shift() && toLocal == Shift())
        return std::vector<DiffRecord>();
    if (toGlobal.chapters == 0 && toLocal.chapters == 0)
        return recordsInChapter(book, toGlobal.verses, toLocal.verses);
    if (toLocal == Shift())
        return std::vector{awayRecord(book, toGlobal)};
    if (toGlobal == Shift())
        return std::vector{backRecord(book, toLocal)};
    std::vector<DiffRecord> both;
    if (toGlobal.chapters != 0)
        both.push_back(awayRecord(book, toGlobal));
    if (toLocal.chapters != 0)
        both.push_back(backRecord(book, toLocal));
    if (toGlobal.chapters == 0 || toLocal.chapters == 0) {
        // The record that stays in the chapter enters both tables; a high verse keeps it behind the other one.
        constexpr int behind = 100000;
        const int verses = toGlobal.chapters == 0 ? toGlobal.verses : -toLocal.verses;
        both.push_back(record(book, second, behind, {0, verses}));
    }
    return both;
}

std::vector<DiffRecord> chooseDiffRecords(const std::vector<VersePair>& pairs, DiffFigures& figures)
{
    CShiftSearch search(pairs);
    figures.roundTripsWithoutRecords = search.roundTrips();
    while (search.improve()) {
    }
    search.simplify();
    figures.roundTrips = search.roundTrips();
    return search.records();
}

} // namespace Kedrin::ModTool
