#include "tolvo_bible/global_refs.h"

#include "tolvo_bible/bible.h"
#include "tolvo_bible/bible_structure.h"

#include <algorithm>

namespace Kedrin::Tolvo {

CGlobalRefs::CGlobalRefs(const CBible& bible, const CBibleStructure& structure) : m_structure(structure)
{
    const unsigned int total = structure.totalVersesCount();
    for (unsigned int num = 0; num < total;) {
        const CRef local = structure.toRef(num);
        const CRef global = bible.toGlobal(local);
        m_runs.push_back({num, global.bookID(), global.chapter(), global.verse()});
        num += std::max(structure.versesFrom(local), 1u); // the first verse may be shown in an empty chapter
    }
    m_runs.push_back({.firstNum = total});
}

void CGlobalRefs::Walk::append(const std::vector<unsigned int>& localVerseNums, std::vector<CRef>& list)
{
    list.reserve(list.size() + localVerseNums.size());
    for (auto num = localVerseNums.begin(); num != localVerseNums.end();) {
        if (*num < m_run.firstNum || *num >= m_runEnd)
            find(*num);
        const Run run = m_run; // a copy, as the compiler must assume that writing to the list changes m_run
        const unsigned int versesCount = m_runEnd - run.firstNum;
        do
            list.emplace_back(run.bookID, run.chapter, run.firstVerse + (*num - run.firstNum), true);
        while (++num != localVerseNums.end() && *num - run.firstNum < versesCount);
    }
}

void CGlobalRefs::Walk::find(unsigned int localVerseNum)
{
    constexpr std::size_t nearRuns = 16;
    const std::vector<Run>& runs = m_refs.m_runs;
    const std::size_t nearEnd = std::min(m_index + nearRuns, runs.size() - 1);
    if (localVerseNum >= runs[m_index].firstNum && localVerseNum < runs[nearEnd].firstNum) {
        while (localVerseNum >= runs[m_index + 1].firstNum)
            ++m_index;
    } else {
        m_refs.m_structure.ValidateNum(localVerseNum);
        const auto isBefore = [](unsigned int num, const Run& run) { return num < run.firstNum; };
        const auto next = std::upper_bound(runs.begin(), runs.end(), localVerseNum, isBefore);
        m_index = static_cast<std::size_t>(next - runs.begin()) - 1;
    }
    m_run = runs[m_index];
    m_runEnd = runs[m_index + 1].firstNum;
}

} // namespace Kedrin::Tolvo
