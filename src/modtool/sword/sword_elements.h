#pragma once

#include "source_findings.h"
#include "sword_markup.h"

#include <optional>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

// What the elements of OSIS, ThML, TEI and GBF mean for the text of a verse.

/// Whether words do not run together over the tag.
bool isBreak(const SwordPiece& tag);

/// Why an element is left out; nothing: it is not. A title may be a psalm title all the same.
std::optional<ReaderRule> ruleOf(const SwordPiece& tag);

/// A title that is text of the Bible.
bool isPsalmTitle(const SwordPiece& tag);

/// A milestone of what stands before a verse but in its entry.
/// @param attribute  "sID": its begin, "eID": its end, where the verse begins
bool isPreverse(const SwordPiece& tag, std::string_view attribute);

/// Where each element ends: [index of its start tag]; npos for all other pieces and for an element without an end. The
/// tags of a name belong together as brackets do.
std::vector<std::size_t> endsOf(const std::vector<SwordPiece>& pieces);

/// Whether an element of the name, begun in the entry, does not end in it.
bool endsInside(std::string_view raw, std::string_view element);

/// Whether an element of the name, begun before the entry, ends in it.
bool beginsInside(std::string_view raw, std::string_view element);

} // namespace Kedrin::ModTool
