#include "verse_alignment.h"

#include <map>
#include <set>

namespace Kedrin::ModTool {

namespace {

using Tolvo::CRef;

/// Rows in the making, by place and, where a module has a place more than once, by how often it had it before.
class CRows
{
public:
    explicit CRows(std::size_t modulesCount) : m_modulesCount(modulesCount) {}

    void add(std::size_t module, const CommonPlace& place, const CRef& local)
    {
        AlignedRow& row = m_rows[{place, m_seen[{module, place}]++}];
        row.place = place;
        row.verses.resize(m_modulesCount);
        row.verses[module] = local;
    }

    std::vector<AlignedRow> take()
    {
        std::vector<AlignedRow> rows;
        rows.reserve(m_rows.size());
        for (auto& [key, row] : m_rows)
            rows.push_back(std::move(row));
        return rows;
    }

private:
    std::size_t m_modulesCount;
    std::map<std::pair<CommonPlace, unsigned int>, AlignedRow> m_rows;
    std::map<std::pair<std::size_t, CommonPlace>, unsigned int> m_seen;
};

} // namespace

std::vector<AlignedRow> alignRange(const std::vector<const CModuleReader*>& modules, const VerseRange& range)
{
    CRows rows(modules.size());
    std::set<CommonPlace> places;
    std::set<int> chapters;
    for (const CRef& local : modules.front()->placesOfBook(range.book)) {
        if (!range.holds(local))
            continue;
        const CommonPlace place = modules.front()->commonPlace(local);
        rows.add(0, place, local);
        places.insert(place);
        if (range.wholeChapters)
            chapters.insert(place.chapter);
    }
    const unsigned int globalBook = modules.front()->titles().globalID(range.book);
    for (std::size_t i = 1; i < modules.size(); ++i) {
        if (!modules[i]->titles().hasBook(globalBook))
            continue;
        for (const CRef& local : modules[i]->placesOfBook(modules[i]->titles().localID(globalBook))) {
            const CommonPlace place = modules[i]->commonPlace(local);
            if (places.contains(place) || chapters.contains(place.chapter))
                rows.add(i, place, local);
        }
    }
    return rows.take();
}

std::vector<AlignedRow> alignAll(const CModuleReader& first, const CModuleReader& second)
{
    CRows rows(2);
    for (const CRef& local : first.places())
        rows.add(0, first.commonPlace(local), local);
    for (const CRef& local : second.places())
        rows.add(1, second.commonPlace(local), local);
    return rows.take();
}

} // namespace Kedrin::ModTool
