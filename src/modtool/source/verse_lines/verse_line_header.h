#pragma once

#include "source_bible.h"

#include <map>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The lines before the first verse of a file of verse lines that begin with "#" (doc/formats/verse-lines.md): what the
/// Bible says of itself. "# title: Нов превод". A line of another form is a remark.
class CVerseLineHeader
{
public:
    /// @param line  without its line end
    /// @throws CBuildError  "book titles must be an id and three titles, separated by tabs", "more than 1000 books"
    void take(std::string_view line);

    /// Gives the Bible what the header says; its books are known by now.
    void giveTo(SourceBible& bible) const;

private:
    void takeBook(std::string_view fields);

    SourceInfo m_info;
    std::string m_versification;
    std::map<std::string, BookTitles, std::less<>> m_titles; ///< by OSIS id
};

/// A value of the header as one line of it: "# title: Нов превод\n".
std::string headerLine(std::string_view key, std::string_view value);

} // namespace Kedrin::ModTool
