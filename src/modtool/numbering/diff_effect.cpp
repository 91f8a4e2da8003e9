#include "diff_effect.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

int negated(int offset) { return static_cast<int>(0u - static_cast<unsigned int>(offset)); }

ChapterVerse moved(ChapterVerse position, Shift shift)
{
    return {position.chapter + static_cast<unsigned int>(shift.chapters),
            position.verse + static_cast<unsigned int>(shift.verses)};
}

ChapterVerse shifted(ChapterVerse position, Shift shift)
{
    return position.chapter == shiftedChapter ? moved(position, shift) : position;
}

} // namespace

Shift reversed(Shift shift) { return {negated(shift.chapters), negated(shift.verses)}; }

ChapterVerse CNumberingShifts::toGlobal(unsigned int globalBook, ChapterVerse local) const
{
    return shifted(local, m_books[globalBook].toGlobal);
}

ChapterVerse CNumberingShifts::toLocal(unsigned int localBook, ChapterVerse global) const
{
    return shifted(global, m_books[localBook].toLocal);
}

bool CNumberingShifts::mapsBothWays(const VersePair& pair) const
{
    return toGlobal(pair.globalBook, pair.local) == pair.global &&
           toLocal(pair.localBook, pair.global) == pair.local;
}

unsigned int CNumberingShifts::roundTripCount(const std::vector<VersePair>& pairs) const
{
    return static_cast<unsigned int>(
        std::count_if(pairs.begin(), pairs.end(), [&](const VersePair& pair) { return mapsBothWays(pair); }));
}

CDiffEffect::CDiffEffect(const std::vector<DiffRecord>& records)
{
    for (const DiffRecord& record : records)
        add(record);
}

void CDiffEffect::add(const DiffRecord& record)
{
    const Shift toGlobal{record.chapterDelta, record.verseDelta};
    const ChapterVerse local{record.chapter - 1, record.verse - 1};
    insert(m_localToGlobal, record.book - 1, local, toGlobal);
    insert(m_globalToLocal, record.book - 1, moved(local, toGlobal), reversed(toGlobal));
    ++m_recordsCount;
}

void CDiffEffect::insert(Table& table, unsigned int book, ChapterVerse begin, Shift shift) const
{
    if (book >= table.size() || begin.chapter != shiftedChapter)
        return;
    std::optional<Entry>& known = table[book];
    const bool wins = !known || begin.verse < known->verse;
    const bool hidesOther = known && (known->hidesOther || (wins ? known->shift : shift) != Shift());
    if (wins)
        known = {begin.verse, shift, m_recordsCount};
    known->hidesOther = hidesOther;
}

CNumberingShifts CDiffEffect::shifts() const
{
    CNumberingShifts shifts;
    for (unsigned int book = 0; book < globalBooksCount; ++book) {
        if (m_localToGlobal[book])
            shifts[book].toGlobal = m_localToGlobal[book]->shift;
        if (m_globalToLocal[book])
            shifts[book].toLocal = m_globalToLocal[book]->shift;
    }
    return shifts;
}

std::set<std::uint64_t> CDiffEffect::effectiveRecords(const std::vector<unsigned int>& globalIDs) const
{
    std::set<std::uint64_t> records;
    const auto take = [&](const Table& table, unsigned int book) {
        if (book < table.size() && table[book] && (table[book]->shift != Shift() || table[book]->hidesOther))
            records.insert(table[book]->record);
    };
    for (unsigned int book = 0; book < globalIDs.size(); ++book) {
        take(m_localToGlobal, globalIDs[book]);
        take(m_globalToLocal, book);
    }
    return records;
}

} // namespace Kedrin::ModTool
