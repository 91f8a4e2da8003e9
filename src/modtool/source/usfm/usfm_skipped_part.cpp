#include "usfm_skipped_part.h"

#include "ascii.h"
#include "usfm_letters.h"
#include "usfm_tokens.h"
#include "verse_collector.h"

namespace Kedrin::ModTool {

void CUsfmSkippedPart::beginToEndMarker(std::string_view name, ReaderRule reason)
{
    begin(End::endMarker, reason);
    m_endMarker = name;
}

void CUsfmSkippedPart::beginToParagraph(ReaderRule reason) { begin(End::paragraph, reason); }

void CUsfmSkippedPart::beginSidebar() { begin(End::sidebarEnd, ReaderRule::outside); }

void CUsfmSkippedPart::beginTitle(std::string_view marker)
{
    const bool isMain = baseName(marker) == "mt" && m_verses.inBook();
    if (isMain && isBlank(m_verses.titles().fullTitle))
        m_mainTitle = true;
    begin(End::paragraph, ReaderRule::title);
    m_takesTitle = isMain && m_mainTitle;
}

void CUsfmSkippedPart::text(std::string_view content, std::string_view whole, std::size_t line)
{
    m_verses.leaveOut(m_reason, whole);
    if (!m_counted && !isBlank(content)) {
        m_verses.found(m_reason, line);
        m_counted = true;
    }
    if (m_takesTitle && m_noteInTitle.empty())
        m_verses.titles().fullTitle += plainUsfm(content);
}

bool CUsfmSkippedPart::goesOnAfter(UsfmMarker kind, std::string_view name, std::size_t line)
{
    if (m_takesTitle && kind == UsfmMarker::note)
        m_noteInTitle = name;
    const bool beginsPart = kind == UsfmMarker::id || kind == UsfmMarker::chapter;
    if (m_end == End::none || (m_end == End::sidebarEnd && !beginsPart && name != "esbe"))
        return isOpen();
    if (!endsParagraph(kind))
        return true;
    if (m_end == End::endMarker)
        m_verses.found(ReaderRule::unfinishedNote, line);
    end();
    return false;
}

bool CUsfmSkippedPart::endsAt(std::string_view endMarker)
{
    if (endMarker == m_noteInTitle)
        m_noteInTitle.clear();
    if (m_end != End::endMarker || endMarker != m_endMarker)
        return false;
    end();
    return true;
}

void CUsfmSkippedPart::begin(End end, ReaderRule reason)
{
    m_end = end;
    m_reason = reason;
    m_counted = false;
}

void CUsfmSkippedPart::end()
{
    m_end = End::none;
    if (m_takesTitle)
        m_verses.titles().fullTitle += ' ';
    m_takesTitle = false;
    m_noteInTitle.clear();
}

} // namespace Kedrin::ModTool
