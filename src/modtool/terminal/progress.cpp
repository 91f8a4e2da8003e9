#include "progress.h"

#include "ut_utils.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t barWidth = 30;
constexpr const char* eraseLine = "\r\033[K";

} // namespace

void CTerminalProgress::show(const std::string& name, std::size_t done, std::size_t total)
{
    if (!m_terminal)
        return;
    const std::size_t percent = total == 0 ? 100 : std::min<std::size_t>(100, done * 100 / total);
    const std::size_t filled = percent * barWidth / 100;
    const std::string picture = '[' + std::string(filled, '#') + std::string(barWidth - filled, '-') + ']' +
                                ut::format(" %3u %% ", static_cast<unsigned int>(percent)) + name;
    if (picture == m_shown)
        return;
    m_shown = picture;
    *m_terminal << eraseLine << picture << std::flush;
}

void CTerminalProgress::clear()
{
    if (m_shown.empty())
        return;
    m_shown.clear();
    *m_terminal << eraseLine << std::flush;
}

} // namespace Kedrin::ModTool
