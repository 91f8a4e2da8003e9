#include "tolvo_ref.h"

#include "lets_out.h"
#include "ut_utils.h"

#include <stdexcept>

namespace Kedrin::Tolvo {

std::string CRef::toString(const ITitles* titles) const
{
    return ut::lets_out<std::out_of_range>("CRef::toString()", [&] {
        const std::string position = ut::format(" %u:%u", m_chapter + 1, m_verse + 1);
        return titles->abbreviatedTitle(m_bookID) + position;
    });
}

CRef operator+(const CRef& ref, const CRefDelta& delta) noexcept
{
    return CRef(ref.bookID() + static_cast<unsigned int>(delta.bookDelta()),
                ref.chapter() + static_cast<unsigned int>(delta.chapterDelta()),
                ref.verse() + static_cast<unsigned int>(delta.verseDelta()));
}

} // namespace Kedrin::Tolvo
