#pragma once

#include "source_bible.h"

#include <map>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The lines before the first verse of a file of verse lines that begin with "#"
/// (doc/formats/verse-lines.md): metadata of the Bible, such as "# title: Нов превод". Any other line is a
/// comment.
class CVerseLineHeader
{
public:
    /// @param line  without its line end
    /// @throws CBuildError  "book titles must be an id and three titles, separated by tabs", "more than 1000 books"
    void take(std::string_view line);

    /// Stores the metadata in the Bible, whose books must be known.
    void giveTo(SourceBible& bible) const;

private:
    void takeBook(std::string_view fields);

    SourceInfo m_info;
    std::string m_versification;
    std::map<std::string, BookTitles, std::less<>> m_titles; ///< by OSIS id
};

/// Whether a text begins with such lines, one of them with a known key, and a line with three tabs follows.
bool beginsWithHeader(std::string_view utf8);

/// One line of the header: "# title: Нов превод\n".
std::string headerLine(std::string_view key, std::string_view value);

} // namespace Kedrin::ModTool
