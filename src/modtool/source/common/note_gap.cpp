#include "note_gap.h"

#include "note_spacing.h"

#include <utility>

namespace Kedrin::ModTool {

void CNoteGap::endWord()
{
    m_inWord = false;
    m_isOpen = m_isOpen || m_isInWord;
    m_isInWord = false;
}

bool CNoteGap::needsSpace(std::string_view before, std::string_view next)
{
    if (next.empty())
        return false;
    m_isInWord = false;
    return std::exchange(m_isOpen, false) && needsSpaceBetween(before, next);
}

} // namespace Kedrin::ModTool
