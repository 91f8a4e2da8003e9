#pragma once

#include "json_document.h"
#include "source_bible.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads JSON, or JavaScript with one value, in any structure described in doc/formats/json.md: one file, or several of a
/// folder. Tags in the texts are handled by addMarkedText().
class CJsonReader
{
public:
    /// @param format  name of the format for the report: that of a text which was turned into JSON; outlives this object
    explicit CJsonReader(const char* format = "JSON");
    ~CJsonReader();
    CJsonReader(const CJsonReader&) = delete;
    CJsonReader& operator=(const CJsonReader&) = delete;

    /// Reads one file; its books follow those of earlier files.
    /// @param utf8       the file's content, without byte order mark
    /// @param shownName  the name in the report's positions; "" for none
    /// @throws CBuildError
    ///     what CJsonDocument, bookOf() and CLetterProof throw
    ///     "%s:%u: unknown JSON structure: neither books with chapters nor numbered verses"
    ///     "%s:%u: a verse without a book", "%s:%u: a verse without a chapter", "%s:%u: a chapter without a book"
    ///     "%s:%u: a book without a name or number", "%s:%u: %s was given before, in line %s"
    ///     "%s:%u: %s is not a chapter number", the same with "verse"
    ///     "%s:%u: %s is not a verse reference, such as Gen.1.1"
    ///     "%s:%u: a verse's text must be a string or a list of strings"
    void read(const std::string& fileName, std::string_view utf8, const std::string& shownName = "");

    /// The same for a document of another notation, of which this is the first pass.
    /// @param prove  compares the letters that were taken (see CLetterProof) with the source, in another way, and returns
    ///               their number
    void read(const CJsonDocument& document,
              const std::function<std::uint64_t(std::string_view taken)>& prove);

    /// The collected Bible. Call once.
    /// @param source  for the error
    /// @throws CBuildError  "%s: contains no verses"
    SourceBible finish(const std::string& source);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

/// Whether a file in a folder is JSON by its name: *.json, *.js.
bool hasJsonExtension(const std::string& fileName);

} // namespace Kedrin::ModTool
