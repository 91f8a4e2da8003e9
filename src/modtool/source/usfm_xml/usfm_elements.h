#pragma once

#include "usfm_markers.h"
#include "xml_bible.h"

#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Base of the readers of formats that write USFM as XML: an element means what its marker does in USFM
/// (doc/formats/usfm.md).
class CUsfmElements : public CXmlBible
{
protected:
    using CXmlBible::CXmlBible;

    /// Whether an element begins a verse. It may be inside any other, even a heading, which it ends.
    virtual bool beginsVerse(const std::string& name) const = 0;

    void end(const std::string& name) override;

    /// Begins a book.
    /// @param rest       the text after the code
    /// @param attribute  that contains the code, for the error
    /// @param line       for the error
    /// An unknown one is "%s:%u: %s is not a book code: write one in %s, such as GEN".
    void beginBookOf(const std::string& code, const std::string& rest, const char* attribute,
                     std::size_t line);

    /// Begins the element of a marker.
    /// @param isParagraph  whether its text is separate from the text around it, whatever the marker
    void startMarker(const std::string& marker, bool isParagraph);

private:
    /// An element whose end matters.
    struct Open
    {
        int depth;
        bool isParagraph;
        bool isTitle; ///< canonical, so its text is kept
        bool isWord;
    };

    void startText(const std::string& marker, UsfmMarker kind);
    void readHeading(const std::string& marker, UsfmMarker kind);
    void readField(const std::string& marker);
    bool readUpToVerse(ReaderRule reason, std::string& text);

    std::vector<Open> m_open;
    bool m_mainTitle = false; ///< the book's full title is taken from its main title
};

} // namespace Kedrin::ModTool
