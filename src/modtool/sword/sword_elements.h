#pragma once

#include "source_findings.h"
#include "sword_markup.h"

#include <optional>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

// What the elements of OSIS, ThML, TEI and GBF mean for the text of a verse.

/// Whether the tag separates words.
bool isBreak(const SwordPiece& tag);

/// Why an element is left out; nothing: it is kept. A title may still be a psalm title.
std::optional<ReaderRule> ruleOf(const SwordPiece& tag);

/// Whether it is a title that is part of the biblical text.
bool isPsalmTitle(const SwordPiece& tag);

/// A milestone around content that precedes a verse but is stored in its entry.
/// @param attribute  "sID": its start, "eID": its end, where the verse begins
bool isPreverse(const SwordPiece& tag, std::string_view attribute);

/// Where each element ends: [index of its start tag]; npos for all other pieces and for an element without an
/// end. Tags of the same name pair like brackets.
std::vector<std::size_t> endsOf(const std::vector<SwordPiece>& pieces);

/// Whether an element of the name, begun in the entry, does not end in it.
bool endsInside(std::string_view raw, std::string_view element);

/// Whether an element of the name, begun before the entry, ends in it.
bool beginsInside(std::string_view raw, std::string_view element);

} // namespace Kedrin::ModTool
