#pragma once

#include "source_bible.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The name of an unknown book as an id: printable, not too long, not empty, and none of a known book.
std::string idOfUnknownBook(std::string_view name);

/// " (did you mean %s?)" with the OSIS id of the book whose name is most like it; "" where none is, or where the name has
/// fewer than three letters.
std::string nearestBook(std::string_view name);

/// Rejects a Bible with verses of unknown books.
/// @throws CBuildError  their complaints, a line each, at most twenty; "  and %s" for the others
void refuseUnknownBooks(const SourceBible& bible);

} // namespace Kedrin::ModTool
