#pragma once

#include "rtf_parser.h"
#include "verse_collector.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Whether a text has controls of RTF, such as \par, \cf6 or \'e1.
bool isRtf(std::string_view text);

/// Reads texts in RTF (doc/formats/sqlite.md, "RTF"): whole documents, or parts of them without a header.
class CRtfText
{
public:
    /// @param bytes  of all escapes such as \'e1 in the texts, from appendEscapedBytes(): the characters of the texts
    ///               are those of Windows-1251 if isWindows1251() says so, else of Windows-1252
    explicit CRtfText(std::string_view bytes);

    /// Appends the bytes of the escapes; those that other text divides are apart.
    static void appendEscapedBytes(std::string_view rtf, std::string& bytes);

    const char* codePage() const { return m_codePage; } ///< "windows-1251" or "windows-1252"

    /// Passes the text to the collector. Of what is no text of the verse, notes and hidden text are left out and
    /// counted; controls are tags.
    void addTo(CVerseCollector& verses, std::string_view rtf, std::size_t line) const;

    /// The text of one alone.
    static std::string plainOf(std::string_view rtf);

    /// The text with its characters decoded, and everything else unchanged: for CLetterProof.
    std::string withCharacters(std::string_view rtf) const;

private:
    const char* m_codePage;
    CCodePage m_characters;
};

} // namespace Kedrin::ModTool
