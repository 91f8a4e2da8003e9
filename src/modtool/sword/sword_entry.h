#pragma once

#include "source_findings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The position of an entry, and what of the neighbouring entries matters to it.
struct SwordEntryContext
{
    enum class Kind
    {
        verse,
        chapter,     ///< the introduction of a chapter
        introduction ///< of a book or the whole
    };

    std::string name; ///< "Gen 1:1"
    Kind kind = Kind::verse;
    bool beginsInNote = false; ///< a note of the entry before ends in this one
    bool noteGoesOn = false;   ///< the last note ends in the next entry
    bool titleGoesOn = false;  ///< the last title does
};

/// The text of an entry.
struct SwordEntry
{
    std::string verse;         ///< UTF-8; "" for an introduction
    std::string title;         ///< psalm titles of a chapter, prepended to the text of the next verse
    std::uint64_t leftOut = 0; ///< letters and digits in neither; the findings count them
};

/// Reads a raw entry, valid UTF-8 without zero bytes. Unpaired tags lose no text: only what is between the
/// two tags of an element is left out, and an element that precedes the verse ends where the verse begins.
SwordEntry readSwordEntry(std::string_view raw, const SwordEntryContext& context, SourceFindings& findings);

} // namespace Kedrin::ModTool
