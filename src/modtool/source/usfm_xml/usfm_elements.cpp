#include "usfm_elements.h"

#include "ascii.h"
#include "book_ids.h"
#include "errors.h"
#include "messages.h"

namespace Kedrin::ModTool {

void CUsfmElements::beginBookOf(const std::string& code, const std::string& rest, const char* attribute,
                                std::size_t line)
{
    const std::string osis = osisOfUsfmLine(code, rest);
    m_mainTitle = false;
    if (!isKnownOsisId(osis) && !isUsfmSideMatter(osis))
        return beginUnknownBook(
            code, message("%s is not a book code: write one in %s, such as GEN", inQuotes(code), attribute),
            line);
    beginBook(osis);
    if (osis != osisOfUsfm(code))
        m_verses.found(ReaderRule::bookByName, line);
}

void CUsfmElements::startMarker(const std::string& marker, bool isParagraph)
{
    const UsfmMarker kind = classify(marker);
    isParagraph = isParagraph || endsParagraph(kind) || kind == UsfmMarker::cell;
    if (isParagraph)
        m_verses.addBreak();
    const int depth = m_xml.depth();
    switch (kind) {
    case UsfmMarker::note:
        return leaveOut(ReaderRule::note);
    case UsfmMarker::secondNumber:
        return leaveOut(ReaderRule::secondNumber);
    case UsfmMarker::figure:
        return leaveOut(ReaderRule::figure);
    case UsfmMarker::sidebar:
        return leaveOut(ReaderRule::outside);
    case UsfmMarker::field:
        return readField(marker);
    case UsfmMarker::title:
    case UsfmMarker::outside:
        m_open.push_back({depth, true, false, false});
        return readHeading(marker, kind);
    default:
        m_open.push_back({depth, isParagraph, kind == UsfmMarker::canonicalTitle, marksWords(marker)});
        return startText(marker, kind);
    }
}

/// An element whose text is verse text.
void CUsfmElements::startText(const std::string& marker, UsfmMarker kind)
{
    if (kind == UsfmMarker::canonicalTitle)
        m_verses.beginTitle();
    else if (kind == UsfmMarker::unknown)
        m_verses.found(ReaderRule::unknownMarker, m_xml.line());
    else if (marksWords(marker))
        m_verses.beginWord();
}

void CUsfmElements::end(const std::string&)
{
    if (m_open.empty() || m_open.back().depth != m_xml.depth())
        return;
    const Open open = m_open.back();
    m_open.pop_back();
    if (open.isWord)
        m_verses.endWord();
    if (open.isTitle)
        m_verses.endTitle();
    if (open.isParagraph)
        m_verses.addBreak();
}

/// A heading, or a paragraph outside the verses.
void CUsfmElements::readHeading(const std::string& marker, UsfmMarker kind)
{
    std::string text;
    const bool isMain = baseName(marker) == "mt" && m_verses.inBook();
    const bool isWhole =
        readUpToVerse(kind == UsfmMarker::title ? ReaderRule::title : ReaderRule::outside, text);
    if (isMain) {
        m_mainTitle = m_mainTitle || isBlank(m_verses.titles().fullTitle);
        m_verses.titles().fullTitle += m_mainTitle ? text + ' ' : "";
    }
    if (isWhole)
        m_open.pop_back();
}

/// Reads the text of the current element, to its end or to a verse in it.
/// @param text  receives it, without notes
/// @returns whether the end was reached
bool CUsfmElements::readUpToVerse(ReaderRule reason, std::string& text)
{
    const int depth = m_xml.depth();
    if (m_xml.isEmpty())
        return false; // end() follows
    bool isCounted = false;
    const auto take = [&](const std::string& content) {
        m_verses.leaveOut(reason, content);
        if (!isCounted && !isBlank(content))
            m_verses.found(reason, m_xml.line());
        isCounted = isCounted || !isBlank(content);
    };
    for (auto node = m_xml.next(); node != CXmlReader::Node::none; node = m_xml.next()) {
        if (node == CXmlReader::Node::end && m_xml.depth() == depth)
            return true;
        if (node == CXmlReader::Node::text) {
            take(std::string(m_xml.text()));
            text += m_xml.text();
        }
        if (node != CXmlReader::Node::start)
            continue;
        const std::string name(m_xml.name());
        text += m_xml.isEmpty() ? " " : "";
        if (beginsVerse(name)) {
            start(name);
            return false;
        }
        if (name == "note" || classify(name) == UsfmMarker::note)
            take(elementText(m_xml));
    }
    return true;
}

void CUsfmElements::readField(const std::string& marker)
{
    const std::string text = elementText(m_xml);
    m_verses.leaveOut(marker == "rem" ? ReaderRule::outside : ReaderRule::metadata, text);
    if (!m_verses.inBook())
        return;
    BookTitles& titles = m_verses.titles();
    if (marker == "toc1")
        titles.fullTitle = text;
    else if (marker == "toc2" || (marker == "h" && titles.shortTitle.empty()))
        titles.shortTitle = text;
    else if (marker == "toc3")
        titles.abbreviatedTitle = text;
    else if (marker == "rem" && !isBlank(text))
        m_verses.found(ReaderRule::outside, m_xml.line());
}

} // namespace Kedrin::ModTool
