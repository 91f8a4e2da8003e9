#include "check_diff.h"

#include "check_file.h"
#include "diff_effect.h"
#include "diff_records.h"
#include "global_books.h"
#include "module_format.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

namespace {

std::vector<unsigned int> globalIDsOf(const CheckedShape& shape)
{
    std::vector<unsigned int> globalIDs;
    for (const CheckedBook& book : shape.books)
        globalIDs.push_back(book.globalID);
    return globalIDs;
}

CDiffEffect checkRecords(std::string_view content, const CheckedShape& shape, CFindings& findings)
{
    CDiffEffect effect;
    std::string_view unread =
        forEachDiffRecord(content, [&](const DiffRecord& record) { effect.add(record); });
    if (!unread.empty())
        findings.add(CheckID::diffMalformed, shownBytes(lineText(takeLine(unread))));
    if (shape.books.empty())
        return effect;
    const std::set<std::uint64_t> effective = effect.effectiveRecords(globalIDsOf(shape));
    std::uint64_t recordNum = 0;
    forEachDiffRecord(content, [&](const DiffRecord& record) {
        if (!effective.contains(recordNum++))
            findings.addLazily(CheckID::diffIdle, [&] { return diffRecordText(record); });
    });
    return effect;
}

/// Maps the verses of a module to the global numbering and back.
class CRoundTrip
{
public:
    CRoundTrip(const CheckedShape& shape, const CNumberingShifts& shifts, CFindings& findings)
        : m_shape(shape),
          m_shifts(shifts),
          m_findings(findings)
    {
        for (std::uint32_t book = 0; book < shape.books.size(); ++book)
            m_localBooks.emplace(shape.books[book].globalID, book); // of equal numbers the first is found
    }

    void followChapter(std::uint32_t book, std::uint32_t chapter)
    {
        const std::uint32_t globalBook = m_shape.books[book].globalID;
        if (globalBook >= globalBooksCount || m_localBooks.at(globalBook) != book)
            return; // no other translation maps to it, which is a separate finding
        std::uint32_t lost = 0, outside = 0;
        for (std::uint32_t verse = 0; verse < m_shape.books[book].versesCount[chapter]; ++verse) {
            const ChapterVerse local{chapter, verse};
            const ChapterVerse global = m_shifts.toGlobal(globalBook, local);
            const bool mapsBack = m_shifts.toLocal(book, global) == local;
            const bool isInside = isGlobalVerse(globalBook, global.chapter, global.verse);
            m_roundTripCount += mapsBack && isInside;
            lost += !mapsBack;
            outside += !isInside;
        }
        report(CheckID::diffNotBack, book, chapter, lost);
        report(CheckID::diffOutside, book, chapter, outside);
    }

    std::uint64_t roundTripCount() const { return m_roundTripCount; }

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
    const CNumberingShifts m_shifts;
    CFindings& m_findings;
    std::map<std::uint32_t, std::uint32_t> m_localBooks; ///< global to local number
    std::uint64_t m_roundTripCount = 0;
};

} // namespace

std::optional<std::uint64_t> checkDiff(const std::string& folder, const CheckedShape& shape,
                                       CFindings& findings)
{
    const std::optional<std::string> content = readForCheck(folder, diffFileName, findings);
    if (!content)
        return std::nullopt;
    const CDiffEffect effect = checkRecords(*content, shape, findings);
    if (!shape.hasStructure || shape.totalVerses > maxNumberedVerses)
        return std::nullopt;
    CRoundTrip roundTrip(shape, effect.shifts(), findings);
    for (std::uint32_t book = 0; book < shape.books.size(); ++book)
        for (std::uint32_t chapter = 0; chapter < shape.books[book].versesCount.size(); ++chapter)
            roundTrip.followChapter(book, chapter);
    return roundTrip.roundTripCount();
}

} // namespace Kedrin::ModTool
