#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace build_test {

/// A piece of a verse as editions mark it, whatever the format.
struct Piece
{
    enum class Kind
    {
        text,
        open,      ///< of a style
        close,     ///< of the style opened last
        note,      ///< `text` is what it says
        heading,   ///< `text` is what it says
        paragraph, ///< begins here
        line,      ///< of poetry begins here
        item,      ///< of a list begins here
        verseBegin ///< what stands before it stands before the verse's number
    };

    enum class Style
    {
        none,
        word, ///< `text` is its Strong's number
        added,
        divineName,
        jesus,
        foreign,
        selah,
        psalmTitle
    };

    Kind kind;
    std::string text;
    Style style = Style::none;
};

struct MarkedVerse
{
    unsigned int chapter; ///< from 1
    unsigned int verse;   ///< from 1
    std::vector<Piece> pieces;
};

struct MarkedBook
{
    std::string osis;
    std::vector<MarkedVerse> verses;
};

/// A Bible from which files of the marked-up formats are made.
using MarkedBible = std::vector<MarkedBook>;

/// The pieces of an entry of a SWORD module that is written in OSIS, up to the end of its book.
std::vector<Piece> piecesOfOsis(std::string_view entry);

/// The entries of an installed SWORD Bible of this name or abbreviation, without introductions; none where it is not
/// installed.
MarkedBible installedBible(const std::string& name);

/// The verses of a text of lines "BOOK TAB CHAPTER TAB VERSE TAB text". `notes` has the same form: each note stands at
/// the end of its verse.
MarkedBible bibleOfLines(const std::string& lines, const std::string& notes);

/// How often there is what.
struct MarkedCounts
{
    std::size_t notes = 0;
    std::size_t headings = 0;
    std::size_t psalmTitles = 0;
};

MarkedCounts countMarks(const MarkedBible& bible);

} // namespace build_test
