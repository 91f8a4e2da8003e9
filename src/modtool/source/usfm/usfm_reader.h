#pragma once

#include "source_bible.h"

#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads USFM 3 and 2 (doc/formats/usfm.md): one file, or a folder with a file a book. Notes, headings, introductions,
/// second verse numbers and word attributes go; the text of character markers stays.
class CUsfmReader
{
public:
    CUsfmReader();
    ~CUsfmReader();
    CUsfmReader(const CUsfmReader&) = delete;
    CUsfmReader& operator=(const CUsfmReader&) = delete;

    /// Reads one file; its books follow those of the files before.
    /// @param utf8       the file's content, without byte order mark
    /// @param shownName  what the report calls the file in its places; "": it does not
    /// @throws CBuildError
    ///     what CLetterProof throws
    ///     "%s:%u: a verse before any \\id: write an \\id with the book's code, such as \\id GEN", the same with "chapter"
    ///     "%s:%u: %s is not a book code: write one after \\id, such as GEN"
    void read(const std::string& fileName, std::string_view utf8, const std::string& shownName = "");

    /// All that was read. Call it once.
    /// @param source  for the message
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    class CPrivate;
    std::unique_ptr<CPrivate> m_private;
};

} // namespace Kedrin::ModTool
