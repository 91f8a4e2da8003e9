#pragma once

#include "verse_alignment.h"

#include <ostream>
#include <vector>

namespace Kedrin::ModTool {

/// Verses of one or several modules, in rows: what `show` writes for other programs. The modules outlive this.
struct ShownVerses
{
    std::vector<const CModuleReader*> modules;
    std::vector<std::vector<std::optional<Tolvo::CRef>>>
        rows; ///< [row][module]: nothing where it has no such verse
};

/// A heading with the title and a paragraph for each verse; for several modules a table.
void writeMarkdown(const ShownVerses& shown, std::ostream& out);

/// The same as a document of its own, UTF-8, without style.
void writeHtml(const ShownVerses& shown, std::ostream& out);

/// An object with "modules" (folder, title) and "rows", lists with an object (see verseJson()) or null for each module.
void writeJson(const ShownVerses& shown, std::ostream& out);

} // namespace Kedrin::ModTool
