#pragma once

#include "build_options.h"
#include "build_report.h"
#include "module_data.h"
#include "source_bible.h"

namespace Kedrin::ModTool {

/// Makes a module from a source: drops books that the global numbering lacks and trailing empty verses,
/// chapters and books, fills gaps with empty verses, encodes the text, indexes its words and chooses its
/// numbering. Fills the report except for its folder.
/// @throws CUnfitText   "%u of %u letters have no equivalent in Windows-1251"
/// @throws CBuildError
///     "the text contains characters that Windows-1251 lacks (--substitute replaces them):" and one line per
///     kind
///     "none of the source's books is in the global numbering", "the source contains no text"
///     "%s: the module would have more than 65534 verses"
///     "%s: the verse has %u bytes; the limit is 65535"
///     "the text has %u bytes; the limit is 16777216", "the text has more than 1048576 different words": with
///     more of
///     them checkModule() does not look at all of it
///     "the full title has %u bytes; the limit is 255", "the full title is empty"; the same with "short
///     title" and
///     "abbreviated title"; "the title of a book has %u bytes; the limit is 255"
///     what CVersification throws
ModuleData prepareModule(const SourceBible& source, const BuildOptions& options, BuildReport& report);

/// Paragraphs as lines of at most `maxLineBytes` bytes, wrapped at spaces where possible; Windows-1251.
std::vector<std::string> wrappedLines(const std::vector<std::string>& paragraphs);

} // namespace Kedrin::ModTool
