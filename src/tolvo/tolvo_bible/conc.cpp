#include "tolvo_bible/conc.h"

#include "lets_out.h"

#include <algorithm>
#include <stdexcept>

namespace Kedrin::Tolvo {

void CConc::getVersesFor(unsigned int wordIndex, std::vector<unsigned int>& verseList)
{
    ut::lets_out<std::out_of_range>("CConc::getVersesFor()", [&] { readVersesFor(wordIndex, verseList); });
}

void CConc::readVersesFor(unsigned int wordIndex, std::vector<unsigned int>& verseList)
{
    if (wordIndex >= m_concPoint.size())
        throw std::out_of_range("CConc::getVersesFor(): wordIndex out of range");
    verseList.clear();
    unsigned int starts[2] = {0,
                              static_cast<unsigned int>(m_conc.size())}; // of this entry, and of the next one
    m_concPoint.readRun(wordIndex, 2, starts);
    // The count of verses and the verses; more than this, or less, if the entries do not follow each other.
    constexpr std::size_t maxSize = 1 + 0xFFFF;
    std::vector<unsigned short> run(std::clamp<std::size_t>(starts[1] - starts[0], 1, maxSize));
    unsigned int concIndex = starts[0];
    std::size_t got = m_conc.readRun(concIndex, run.size(), run.data());
    const std::size_t versesCount = run[0];
    const auto append = [&](const unsigned short* stored, std::size_t count) {
        const std::size_t known = verseList.size();
        verseList.resize(known + count);
        for (std::size_t i = 0; i < count; ++i)
            verseList[known + i] = stored[i] - 1u;
    };
    append(run.data() + 1, std::min(versesCount, got - 1));
    while (verseList.size() < versesCount) {
        concIndex += static_cast<unsigned int>(got);
        run.resize(versesCount - verseList.size());
        got = m_conc.readRun(concIndex, run.size(), run.data());
        append(run.data(), got);
    }
}

} // namespace Kedrin::Tolvo
