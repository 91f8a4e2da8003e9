#pragma once

#include "source_bible.h"

#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Information that a plain text itself does not contain.
struct PlainInput
{
    /// Name of its only book as given by the user; "": it is in the text or in the file name.
    std::string book;
    /// Name of the file in the positions of the report; "": positions without a file name.
    std::string shownName;
    /// Books that nobody knows are collected like others (see CVerseCollector) instead of making bad lines.
    bool takesUnknownBooks = false;
};

/// Reads plain text and tables of verses (doc/formats/plain-lines.md): CSV and the like, a verse a line, or lines under
/// headings; one file, or a folder with several.
class CPlainReader
{
public:
    CPlainReader();
    ~CPlainReader();
    CPlainReader(const CPlainReader&) = delete;
    CPlainReader& operator=(const CPlainReader&) = delete;

    /// Reads one file; its books follow those of the files before.
    /// @param utf8  the file's content, without byte order mark
    /// @throws CBuildError
    ///     what CLetterProof, CBadLines::refuse() and readPlainLines() throw
    ///     "%s: is not a table of verses, nor one verse per line, nor verses under headings"
    ///     "--book: %s is not a known book", perhaps with "(did you mean %s?)"
    ///     "%s: names its own books, so --book cannot be used"
    void read(const std::string& fileName, std::string_view utf8, const PlainInput& input = {});

    /// All that was read. Call it once.
    /// @param source  for the message
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

/// Whether the first lines are such as CPlainReader reads.
/// @param path  of the file, whose name may say its book
bool isPlainLines(std::string_view utf8, const std::string& path);

/// Whether the first line that is no remark is one of verse lines (doc/formats/verse-lines.md): three tabs and in front
/// of the first an OSIS id, or what is no other known name or number of a book, and no names of columns.
bool beginsAsVerseLines(std::string_view utf8);

} // namespace Kedrin::ModTool
