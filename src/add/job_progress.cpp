#include "job_progress.h"

#include "shown_text.h"

#include <algorithm>

namespace Kedrin::Add {

void CJobProgress::show(const std::string& name, std::size_t done, std::size_t total)
{
    if (m_isCancelled && done < total)
        throw CCancelled();
    const int percent = total == 0 ? 100 : static_cast<int>(std::min<std::size_t>(100, done * 100 / total));
    if (name == m_shownName && percent == m_shownPercent)
        return;
    m_shownName = name;
    m_shownPercent = percent;
    QMetaObject::invokeMethod(
        &m_receiver, [told = m_told, name = fromUtf8(name), percent] { told(name, percent); },
        Qt::QueuedConnection);
}

} // namespace Kedrin::Add
