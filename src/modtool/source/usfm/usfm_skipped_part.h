#pragma once

#include "source_findings.h"
#include "usfm_markers.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

class CVerseCollector;

/// The part of a USFM file that is being read without becoming verse text: a note, a title, an introduction. It is
/// counted under its reason; the first main title becomes the book's full title if the book has none.
class CUsfmSkippedPart
{
public:
    /// @param verses  must outlive this object
    explicit CUsfmSkippedPart(CVerseCollector& verses) : m_verses(verses) {}

    /// Begins a part that ends at the end marker `name`, or where the paragraph ends.
    void beginToEndMarker(std::string_view name, ReaderRule reason);
    /// Begins a part that ends at the next marker that ends paragraphs.
    void beginToParagraph(ReaderRule reason);
    /// Begins a part that ends at \esbe, at a chapter or a book.
    void beginSidebar();
    /// Begins a title, as beginToParagraph().
    void beginTitle(std::string_view marker);
    /// Forgets the main title of the book before.
    void beginBook() { m_mainTitle = false; }

    bool isOpen() const { return m_end != End::none; }

    /// Counts text of the open part.
    /// @param whole    what is left out
    /// @param content  its beginning without attributes of words
    void text(std::string_view content, std::string_view whole, std::size_t line);
    /// Whether the open part goes on after the marker; ends it otherwise.
    bool goesOnAfter(UsfmMarker kind, std::string_view name, std::size_t line);
    /// Whether the end marker ends the open part.
    bool endsAt(std::string_view endMarker);

private:
    enum class End
    {
        none, ///< no part is open
        endMarker,
        paragraph,
        sidebarEnd
    };

    void begin(End end, ReaderRule reason);
    void end();

    CVerseCollector& m_verses;
    End m_end = End::none;
    std::string m_endMarker;
    ReaderRule m_reason = ReaderRule::note;
    bool m_counted = false;
    bool m_mainTitle = false;  ///< the book's full title is taken from its main title
    bool m_takesTitle = false; ///< the open part belongs to it
    std::string m_noteInTitle; ///< end marker of a note in it
};

} // namespace Kedrin::ModTool
