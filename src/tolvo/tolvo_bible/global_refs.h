#pragma once

#include "tolvo_ref.h"

#include <cstddef>
#include <vector>

namespace Kedrin::Tolvo {

class CBible;
class CBibleStructure;

/// The global references of a module's verse numbers, for searches. Verses of one chapter follow each other in both
/// numberings, so only the first verse of each chapter is converted, when the table is made.
class CGlobalRefs
{
public:
    CGlobalRefs(const CBible& bible, const CBibleStructure& structure);

    /// Converts one number after another; faster if they ascend. The table must outlive it.
    class Walk
    {
    public:
        explicit Walk(const CGlobalRefs& refs) : m_refs(refs) {}

        /// Appends what CBible::toGlobal gives for CBibleStructure::toRef(localVerseNum).
        /// @throws std::out_of_range  as CBibleStructure::ValidateNum
        void append(unsigned int localVerseNum, std::vector<CRef>& list)
        {
            if (localVerseNum < m_run.firstNum || localVerseNum >= m_runEnd)
                find(localVerseNum);
            list.emplace_back(m_run.bookID, m_run.chapter,
                              m_run.firstVerse + (localVerseNum - m_run.firstNum), true);
        }

        /// The same for each of the numbers.
        void append(const std::vector<unsigned int>& localVerseNums, std::vector<CRef>& list);

    private:
        friend class CGlobalRefs;

        /// Verses with the same book and chapter in global numbers.
        struct Run
        {
            unsigned int firstNum = 0; ///< local verse number of the first
            unsigned int bookID = 0;
            unsigned int chapter = 0;
            unsigned int firstVerse = 0;
        };

        void find(unsigned int localVerseNum);

        const CGlobalRefs& m_refs;
        Run m_run;
        unsigned int m_runEnd = 0;
        std::size_t m_index = 0; ///< of m_run in m_refs
    };

private:
    const CBibleStructure& m_structure;
    std::vector<Walk::Run> m_runs; ///< ascending; the last one only marks the end
};

} // namespace Kedrin::Tolvo
