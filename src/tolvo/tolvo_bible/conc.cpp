#include "tolvo_bible/conc.h"

#include "lets_out.h"

#include <algorithm>
#include <array>
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
    unsigned int concIndex = m_concPoint[wordIndex];
    std::size_t left = m_conc[concIndex++];
    std::array<unsigned short, 4096> run;
    while (left > 0) {
        const std::size_t count = m_conc.readRun(concIndex, std::min(left, run.size()), run.data());
        const std::size_t known = verseList.size();
        verseList.resize(known + count);
        for (std::size_t i = 0; i < count; ++i)
            verseList[known + i] = run[i] - 1u;
        concIndex += static_cast<unsigned int>(count);
        left -= count;
    }
}

} // namespace Kedrin::Tolvo
