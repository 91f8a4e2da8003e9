#pragma once

#include "source_bible.h"

#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads USFM 3 and 2 (doc/formats/usfm.md): one file, or a folder with one file per book. Notes, headings,
/// introductions, alternate verse numbers and word attributes are left out; the text of character markers is
/// kept.
class CUsfmReader
{
public:
    CUsfmReader();
    ~CUsfmReader();
    CUsfmReader(const CUsfmReader&) = delete;
    CUsfmReader& operator=(const CUsfmReader&) = delete;

    /// Reads one file; its books follow those of earlier files.
    /// @param utf8       the file's content, without byte order mark
    /// @param shownName  name of the file for positions in the report; "": not shown
    /// @throws CBuildError
    ///     what CLetterProof throws
    ///     "%s:%u: a verse before any \\id: write an \\id with the book's code, such as \\id GEN", the same with "chapter"
    /// An unknown book says "%s:%u: %s is not a book code: write one after \\id, such as GEN".
    void read(const std::string& fileName, std::string_view utf8, const std::string& shownName = "");

    /// Everything read. Call once.
    /// @param source  for the message
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace Kedrin::ModTool
