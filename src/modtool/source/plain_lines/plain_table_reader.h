#pragma once

#include "plain_shape.h"
#include "plain_verses.h"

#include <string_view>

namespace Kedrin::ModTool {

/// Reads a table of verses.
void readPlainTable(std::string_view utf8, const PlainShape& shape, CPlainVerses& verses);

} // namespace Kedrin::ModTool
