#pragma once

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Whether an OSIS element stands apart from the text before it and after it: a paragraph, a line, a cell.
bool isOsisBlock(std::string_view element);

/// Whether it is a heading.
bool isOsisTitle(std::string_view element);

/// Whether it belongs to a figure or an index, not to the text.
bool isOsisFigure(std::string_view element);

/// Whether a division of this type stands beside the books: an introduction, a glossary.
bool isOsisSideMatter(std::string_view divisionType);

/// The mark that closes a quotation, by the one that opens it; the same one where that opens none.
std::string closingQuoteMark(const std::string& opening);

} // namespace Kedrin::ModTool
