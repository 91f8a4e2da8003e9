#pragma once

#include "marked_text.h"

#include <map>
#include <string>

// Files of the formats, made as their documentation shows and by none of the product's code.

namespace build_test {

/// A USFM 3 file a book, by name: `\w` with Strong's numbers, `\add`, `\nd`, `\wj`, `\tl`, `\qs`, nested with a plus;
/// notes, headings, psalm titles, paragraphs, lines of poetry.
std::map<std::string, std::string> usfmFiles(const MarkedBible& bible);

/// One Zefania XML file: `gr`, `STYLE`, `NOTE`, `CAPTION`, `BR`. A psalm title stands in its verse.
std::string zefaniaFile(const MarkedBible& bible);

/// One OSIS file: verses between milestones, in `p` and `lg`/`l` that cross them, `w`, `transChange`, `divineName`,
/// `q who="Jesus"`, `foreign`, `note`, `title`.
std::string osisFile(const MarkedBible& bible);

} // namespace build_test
