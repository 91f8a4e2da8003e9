#pragma once

#include "source_bible.h"

#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads USX 3 and 2 (doc/formats/usx.md): one file, or several of a folder. Paragraphs and characters mean what
/// the markers of their styles do in USFM.
class CUsxReader
{
public:
    CUsxReader();
    ~CUsxReader();
    CUsxReader(const CUsxReader&) = delete;
    CUsxReader& operator=(const CUsxReader&) = delete;

    /// Reads one file; its books follow those of earlier files.
    /// @param utf8       the file's content, without byte order mark
    /// @param shownName  the name in the report's positions; "" for none
    /// @throws CBuildError
    ///     what CXmlBible::read() throws
    ///     "%s:%u: a verse before any <book>"
    /// An unknown book says "%s:%u: %s is not a book code: write one in code, such as GEN".
    void read(const std::string& fileName, std::string_view utf8, const std::string& shownName = "");

    /// The collected Bible. Call once.
    /// @param source  for the error
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace Kedrin::ModTool
