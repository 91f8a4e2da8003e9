#include "check_diff.h"

#include "check_file.h"
#include "common_books.h"
#include "module_format.h"
#include "text_reader.h"

#include <map>

namespace Kedrin::ModTool {

namespace {

constexpr std::uint32_t shiftedChapter = 1; // the engine shifts the second chapter of a book, no other

std::string recordText(const CheckedDiffRecord& record)
{
    return std::to_string(record.book) + ' ' + std::to_string(record.chapter) + ' ' +
           std::to_string(record.verse) + ' ' + std::to_string(record.chapterDelta) + ' ' +
           std::to_string(record.verseDelta);
}

void checkRecords(std::string_view content, const CDiffEffect& effect, const CheckedShape& shape,
                  CFindings& findings)
{
    std::string_view unread = effect.unread();
    unread.remove_prefix(std::min(unread.find_first_not_of(" \t\n\v\f\r"), unread.size()));
    if (!unread.empty())
        findings.add(CheckID::diffMalformed, shownBytes(lineText(takeLine(unread))));
    if (shape.books.empty())
        return;
    const std::set<std::uint64_t> effective = effect.effectiveRecords(shape);
    std::uint64_t recordNum = 0;
    forEachDiffRecord(content, [&](const CheckedDiffRecord& record) {
        if (!effective.contains(recordNum++))
            findings.addLazily(CheckID::diffIdle, [&] { return recordText(record); });
    });
}

bool isInCommon(std::uint32_t globalBook, NumberedPlace place)
{
    const auto counts = commonBooks()[globalBook].verseCounts;
    return place.chapter < counts.size() && place.verse < counts[place.chapter];
}

/// Follows the verses of a module to the common numbering and back.
class CRoundTrip
{
public:
    CRoundTrip(const CheckedShape& shape, const CDiffEffect& effect, CFindings& findings)
        : m_shape(shape),
          m_effect(effect),
          m_findings(findings)
    {
        for (std::uint32_t book = 0; book < shape.books.size(); ++book)
            m_localBooks.emplace(shape.books[book].globalID, book); // of equal numbers the first is found
    }

    void followChapter(std::uint32_t book, std::uint32_t chapter)
    {
        const std::uint32_t globalBook = m_shape.books[book].globalID;
        if (globalBook >= commonBooksCount || m_localBooks.at(globalBook) != book)
            return; // no other translation leads to it, which is a finding of its own
        std::uint32_t lost = 0, outside = 0;
        for (std::uint32_t verse = 0; verse < m_shape.books[book].versesCount[chapter]; ++verse) {
            const NumberedPlace local{chapter, verse};
            const NumberedPlace global = m_effect.toGlobal(globalBook, local);
            const bool isKept = m_effect.toLocal(book, global) == local;
            const bool isInside = isInCommon(globalBook, global);
            m_keptCount += isKept && isInside;
            lost += !isKept;
            outside += !isInside;
        }
        report(CheckID::diffNotBack, book, chapter, lost);
        report(CheckID::diffOutside, book, chapter, outside);
    }

    std::uint64_t keptCount() const { return m_keptCount; }

private:
    void report(CheckID check, std::uint32_t book, std::uint32_t chapter, std::uint32_t count)
    {
        if (count != 0)
            m_findings.addLazily(check, [&] {
                return m_shape.bookName(book) + ' ' + std::to_string(chapter + 1) + ": " +
                       std::to_string(count);
            });
    }

    const CheckedShape& m_shape;
    const CDiffEffect& m_effect;
    CFindings& m_findings;
    std::map<std::uint32_t, std::uint32_t> m_localBooks; ///< global to local number
    std::uint64_t m_keptCount = 0;
};

} // namespace

std::string_view forEachDiffRecord(std::string_view content,
                                   const std::function<void(const CheckedDiffRecord&)>& use)
{
    ut::CNumberReader numbers(content);
    for (;;) {
        const std::string_view rest = numbers.rest();
        const auto book = numbers.nextUnsigned();
        const auto chapter = numbers.nextUnsigned();
        const auto verse = numbers.nextUnsigned();
        const auto chapterDelta = numbers.nextSigned();
        const auto verseDelta = numbers.nextSigned();
        if (!verseDelta) // a reader that has failed once stays failed
            return rest;
        use({*book, *chapter, *verse, *chapterDelta, *verseDelta});
    }
}

CDiffEffect::CDiffEffect(std::string_view content)
{
    m_unread = forEachDiffRecord(content, [this](const CheckedDiffRecord& record) {
        const auto chapterShift = static_cast<std::uint32_t>(record.chapterDelta);
        const auto verseShift = static_cast<std::uint32_t>(record.verseDelta);
        const NumberedPlace local{record.chapter - 1, record.verse - 1};
        const NumberedPlace global{local.chapter + chapterShift, local.verse + verseShift};
        insert(m_localToGlobal, record.book - 1, local,
               {local.verse, chapterShift, verseShift, m_recordsCount});
        insert(m_globalToLocal, record.book - 1, global,
               {global.verse, 0 - chapterShift, 0 - verseShift, m_recordsCount});
        ++m_recordsCount;
    });
}

void CDiffEffect::insert(Table& table, std::uint32_t book, NumberedPlace place, const Entry& entry)
{
    if (book >= booksCount || place.chapter != shiftedChapter)
        return;
    std::optional<Entry>& known = table[book];
    const bool wins = !known || place.verse < known->verse; // of equal places the first record stays
    const bool hidesOther = known && (known->hidesOther || (wins ? *known : entry).shifts());
    if (wins)
        known = entry;
    known->hidesOther = hidesOther;
}

NumberedPlace CDiffEffect::shifted(const std::optional<Entry>& entry, NumberedPlace place)
{
    if (!entry || place.chapter != shiftedChapter)
        return place;
    return {place.chapter + entry->chapterShift, place.verse + entry->verseShift};
}

NumberedPlace CDiffEffect::toGlobal(std::uint32_t globalBook, NumberedPlace local) const
{
    return shifted(m_localToGlobal[globalBook], local);
}

NumberedPlace CDiffEffect::toLocal(std::uint32_t localBook, NumberedPlace global) const
{
    return shifted(m_globalToLocal[localBook], global);
}

std::set<std::uint64_t> CDiffEffect::effectiveRecords(const CheckedShape& shape) const
{
    std::set<std::uint64_t> records;
    const auto take = [&](const Table& table, std::uint32_t book) {
        if (book < booksCount && table[book] && (table[book]->shifts() || table[book]->hidesOther))
            records.insert(table[book]->record);
    };
    for (std::uint32_t book = 0; book < shape.books.size(); ++book) {
        take(m_localToGlobal, shape.books[book].globalID);
        take(m_globalToLocal, book);
    }
    return records;
}

std::optional<std::uint64_t> checkDiff(const std::string& folder, const CheckedShape& shape,
                                       CFindings& findings)
{
    const std::optional<std::string> content = readForCheck(folder, "_Diff_.txt", findings);
    if (!content)
        return std::nullopt;
    const CDiffEffect effect(*content);
    checkRecords(*content, effect, shape, findings);
    if (!shape.hasStructure || shape.totalVerses > maxNumberedVerses)
        return std::nullopt;
    CRoundTrip roundTrip(shape, effect, findings);
    for (std::uint32_t book = 0; book < shape.books.size(); ++book)
        for (std::uint32_t chapter = 0; chapter < shape.books[book].versesCount.size(); ++chapter)
            roundTrip.followChapter(book, chapter);
    return roundTrip.keptCount();
}

} // namespace Kedrin::ModTool
