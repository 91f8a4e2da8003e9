#include "tolvo_bible/bible_info.h"

#include "input_file.h"
#include "text_reader.h"

namespace Kedrin::Tolvo {

namespace {

constexpr std::size_t maxLineBytes = 255;

/// The next line; the fallback if an earlier line has already failed. A line that fails now is still used.
std::string lineOr(const std::string& fallback, ut::CLineReader& lines)
{
    if (lines.failed())
        return fallback;
    lines.next();
    return lines.line();
}

} // namespace

CBibleInfo::CBibleInfo(const char* filePath, const char* defaults)
{
    std::string content;
    if (!ut::read_text_file(filePath, content)) {
        m_fullTitle = m_shortTitle = m_abbreveatedTitle = defaults;
        return;
    }
    ut::CLineReader lines(content, maxLineBytes);
    m_fullTitle = lineOr(defaults, lines);
    m_shortTitle = lineOr(m_fullTitle, lines);
    m_abbreveatedTitle = lineOr(m_shortTitle, lines);
    while (lines.next())
        m_copyright += lines.line() + '\n';
}

} // namespace Kedrin::Tolvo
