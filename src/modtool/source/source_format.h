#pragma once

#include "book_ids.h"
#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

enum class SourceFormat
{
    detected, ///< by the content
    beblia,
    ces,
    json,
    opensong,
    osis,
    sqlite,
    usfm,
    usfx,
    usx,
    yaml,
    zefania,
    plainLines,
    verseLines
};

/// Options for reading a source.
struct ReadOptions
{
    SourceFormat format = SourceFormat::detected;
    std::string encoding; ///< "": as the source says; see readText()
    std::string book;     ///< of a plain text that does not say it; "": see PlainInput
    BookOrder order = BookOrder::source;
    bool skipUnknownBooks = false; ///< leave out books that nobody knows instead of rejecting the text
};

/// What a content is: XML by its root element, USFM by a marker at its beginning, JSON by its brackets, YAML
/// by its keys, plain lines by the first ones, anything else verse lines.
/// @param utf8      without byte order mark
/// @param fileName  for the message, and because its name may say a book
/// @throws CBuildError  "%s: is XML of an unknown format (its root element is %s)"
SourceFormat detectFormat(std::string_view utf8, const std::string& fileName);

/// What the user calls a format: "OSIS", "plain text"; "" for SourceFormat::detected.
const char* formatName(SourceFormat format);

/// Adds to the report that this encoding was recognised; "" adds nothing.
void sayRecognised(SourceBible& bible, const std::string& encoding);

/// Reads a file's content of any format, without titles for a source that has none.
/// @throws CBuildError  what readSourceFile() throws of a file
SourceBible readSourceContent(const std::string& fileName, const std::string& bytes,
                              const ReadOptions& options);

/// Reads a file of any format but a zip archive, without titles for a source that has none.
/// @throws CBuildError
///     what readText(), detectFormat() and the formats' readers throw
///     "%s: --book is for a file of plain lines"
SourceBible readSingleFile(const std::string& path, const ReadOptions& options);

} // namespace Kedrin::ModTool
