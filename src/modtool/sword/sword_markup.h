#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// A tag of a SWORD entry, or the text between two. The markup may be OSIS, ThML, TEI or GBF.
struct SwordPiece
{
    enum class Form
    {
        text,
        start,
        end,
        empty ///< also tags of GBF that stand alone, and comments
    };

    Form form;
    std::string_view bytes; ///< as in the entry
    std::string_view name;  ///< of a tag: "note"; of a pair of GBF that of its start: "RF"
};

/// The pieces of an entry, in their order; together they are the entry. A "<" that begins no tag, and one whose tag does
/// not end, are text.
std::vector<SwordPiece> swordPieces(std::string_view raw);

/// An attribute of a tag, "" where it has none of the name.
std::string_view swordAttribute(std::string_view tag, std::string_view name);

/// Text with its character references (`&amp;`, `&#1073;`, the names of HTML, `<CA65>` of GBF) made characters. A
/// reference that is not known stays as it is.
std::string swordCharacters(std::string_view text);

/// The letters and digits of a raw entry, whatever elements they stand in.
std::uint64_t lettersOfEntry(std::string_view raw);

/// A paragraph of a module's configuration as plain text: RTF controls become line ends or go, HTML tags go.
/// (The library's filter, RTFHTML, leaves braces and all controls but those of paragraphs and characters in.)
/// @returns its lines, none of them empty
std::string plainConfiguration(std::string_view value);

} // namespace Kedrin::ModTool
