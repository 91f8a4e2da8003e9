#include "verse_alignment.h"

#include <map>
#include <set>

namespace Kedrin::ModTool {

namespace {

using Tolvo::CRef;

/// Keyed by position and by its occurrence within the module.
class CRows
{
public:
    explicit CRows(std::size_t modulesCount) : m_modulesCount(modulesCount) {}

    void add(std::size_t module, const GlobalPosition& position, const CRef& local)
    {
        AlignedRow& row = m_rows[{position, m_seen[{module, position}]++}];
        row.position = position;
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
    std::map<std::pair<GlobalPosition, unsigned int>, AlignedRow> m_rows;
    std::map<std::pair<std::size_t, GlobalPosition>, unsigned int> m_seen;
};

std::vector<AlignedRow> alignOne(const std::vector<const CModuleReader*>& modules, const VerseRange& range)
{
    CRows rows(modules.size());
    std::set<GlobalPosition> positions;
    std::set<int> chapters;
    for (const CRef& local : modules.front()->referencesOfBook(range.book)) {
        if (!range.holds(local))
            continue;
        const GlobalPosition position = modules.front()->globalPosition(local);
        rows.add(0, position, local);
        positions.insert(position);
        if (range.wholeChapters)
            chapters.insert(position.chapter);
    }
    const unsigned int globalBook = modules.front()->titles().globalID(range.book);
    for (std::size_t i = 1; i < modules.size(); ++i) {
        if (!modules[i]->titles().hasBook(globalBook))
            continue;
        for (const CRef& local : modules[i]->referencesOfBook(modules[i]->titles().localID(globalBook))) {
            const GlobalPosition position = modules[i]->globalPosition(local);
            if (positions.contains(position) || chapters.contains(position.chapter))
                rows.add(i, position, local);
        }
    }
    return rows.take();
}

} // namespace

std::vector<AlignedRow> alignRanges(const std::vector<const CModuleReader*>& modules,
                                    const std::vector<VerseRange>& ranges)
{
    std::vector<AlignedRow> rows;
    for (const VerseRange& range : ranges)
        for (AlignedRow& row : alignOne(modules, range))
            rows.push_back(std::move(row));
    return rows;
}

std::vector<AlignedRow> alignAll(const CModuleReader& first, const CModuleReader& second)
{
    CRows rows(2);
    for (const CRef& local : first.references())
        rows.add(0, first.globalPosition(local), local);
    for (const CRef& local : second.references())
        rows.add(1, second.globalPosition(local), local);
    return rows.take();
}

} // namespace Kedrin::ModTool
