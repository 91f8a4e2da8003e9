#pragma once

#include "build_options.h"
#include "build_report.h"
#include "module_data.h"
#include "source_bible.h"

namespace Kedrin::ModTool {

/// Makes a module of a source: leaves out books that the common numbering lacks and what is empty at the ends, fills
/// gaps with empty verses, encodes the text, collects its words and chooses its numbering. Fills the report, but for
/// its folder.
/// @throws CUnfitText   "%u of %u letters have no equivalent in Windows-1251"
/// @throws CBuildError
///     "the text contains characters that Windows-1251 lacks (--substitute replaces them):" and a line for each kind
///     "none of the source's books is in the global numbering", "the source contains no text"
///     "%s: the module would hold more than 65534 verses"
///     "%s: the verse has %u bytes, 65535 are the most"
///     "the text has %u bytes, 16777216 are the most", "the text has more than 1048576 different words": with more of
///     them checkModule() does not look at all of it
///     "the full title has %u bytes, 255 are the most", "the full title is empty"; the same with "short title" and
///     "abbreviated title"; "the title of a book has %u bytes, 255 are the most"
///     what CVersification throws
ModuleData prepareModule(const SourceBible& source, const BuildOptions& options, BuildReport& report);

/// Paragraphs as lines of at most `maxLineBytes` bytes, broken at blanks where there are any; Windows-1251.
std::vector<std::string> wrappedLines(const std::vector<std::string>& paragraphs);

} // namespace Kedrin::ModTool
