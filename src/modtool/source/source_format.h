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
    json,
    opensong,
    osis,
    usfm,
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
};

/// What a content is: XML by its root element, USFM by a marker at its beginning, JSON by its brackets, plain lines by the
/// first ones, anything
/// else verse lines.
/// @param utf8      without byte order mark
/// @param fileName  for the message, and because its name may say a book
/// @throws CBuildError  "%s: is XML of an unknown format (its root element is %s)"
SourceFormat detectFormat(std::string_view utf8, const std::string& fileName);

/// Reads a file of any format, or a folder of JSON files (readJsonFolder()), of plain lines or of USFM files (*.usfm, *.sfm, *.ptx, *.scp, or
/// else any that begin with \id; in the order of their names, or in Protestant order if not all names begin
/// with a number). Titles missing from the source are taken from the file name.
/// @throws CBuildError
///     what readText(), detectFormat() and the formats' readers throw
///     "%s: is a folder; only USFM, JSON and plain lines are read from folders", "%s: contains no file of plain lines"
///     "%s: --book is for a file of plain lines"
///     "%s: contains no USFM file (*.usfm, *.sfm, *.ptx, *.scp)"
///     "%s: contains more than 64 MiB"
SourceBible readSourceFile(const std::string& path, const ReadOptions& options);

} // namespace Kedrin::ModTool
